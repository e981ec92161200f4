// From a request to its response: the web API's paths, without connections.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/Credentials.hpp"
#include "Apps/Server/Message.hpp"
#include "Apps/Server/RepresentationCache.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Apps/Server/VenuePackage.hpp"

namespace orivanta::server {

/// Serves, to GET and HEAD:
///
/// - `/1/venue`: the venues, in the order of the packages;
/// - `/1/map`, `/1/location`, `/1/category`, `/1/node`, `/1/vortex`, `/1/polygon`, each with
///   `?venue=SLUG`: a collection of a venue;
/// - `/1/files/SLUG/...`: the files of a package.
///
/// Collections come in pages; `page` (from 1) and `per-page` choose one, and a `Link` header names
/// the others. References of records to files are absolute URLs in them, below the host that the
/// client asked. Everything else is answered with an error as JSON.
class Router {
 public:
  struct Options {
    std::string origin;  ///< stands for the host when a request names none: "http://127.0.0.1:80"
    std::size_t pageSize = 100;
    std::optional<Credentials> credentials;  ///< when set, nothing is served without them
  };
  static constexpr std::size_t largestPageSize = 10'000;

  Router(std::vector<VenuePackage> packages, Options options);

  /// Any thread, any number at once.
  Response respond(const Request& request);

 private:
  Response respondToAdmitted(const Request& request);
  Response collection(const Request& request, const Target& target);
  Response page(const Request& request, const Target& target, const RecordCollection& records);
  Response file(const Request& request, const Target& target);
  const VenuePackage* package(std::string_view slug) const;
  std::string originFor(const Request& request) const;

  std::vector<VenuePackage> packages_;
  Options options_;
  RecordCollection venues_;
  RepresentationCache cache_;
};

}  // namespace orivanta::server
