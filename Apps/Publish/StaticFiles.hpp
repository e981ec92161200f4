// Writes venues as static files, from which any web server can serve the web API.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Apps/Publish/NginxFragment.hpp"
#include "Apps/Server/CrossOrigin.hpp"
#include "Apps/Server/VenuePackage.hpp"

namespace orivanta::publish {

/// Venues cannot be published. The message names the cause.
class PublishError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What was written.
struct Publication {
  std::vector<PublishedVenue> venues;
  std::size_t files = 0;            ///< without compressed copies
  std::size_t bytes = 0;            ///< of these files
  std::size_t compressedBytes = 0;  ///< with the compressed copy instead, where there is one
};

/// Writes:
///
/// - `SLUG/LANGUAGE/1/venue`, `.../map` and so on: a whole collection, for an API root without
/// query;
/// - `1/venues/LANGUAGE`: the list of all venues;
/// - `1/files/SLUG/...`: the files of the package, under the URLs that `serve` gives them;
/// - `nginx/maps.conf` and `nginx/locations.conf`;
/// - beside each text of at least 1 KiB, its copy in gzip format, with ".gz" at the end.
///
/// The language "default" has the names without a language. nginx answers web pages as
/// `crossOrigin` allows. `baseUrl` is the URL of the folder, such as "https://maps.example" or
/// "https://cdn.example/maps". The folder is replaced when everything is written. Throws
/// `PublishError` if a slug or the URL is not usable, or if the folder exists and was not published
/// before, and `std::runtime_error` if a file cannot be read or written.
Publication publishVenues(const std::vector<std::shared_ptr<const server::VenuePackage>>& packages,
                          const std::filesystem::path& folder, std::string baseUrl,
                          const server::CrossOrigin& crossOrigin = {});

}  // namespace orivanta::publish
