// From a request to its response: the web API's paths, without connections.
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/Credentials.hpp"
#include "Apps/Server/Message.hpp"
#include "Apps/Server/PackageStore.hpp"
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
/// the others. References of records to files are absolute URLs in them, below the origin that is
/// set, else the one that a trusted proxy names, else the host that the client asked. Everything
/// else is answered with an error as JSON. Files are opened for every request; packages are read
/// anew when they were replaced.
class Router {
 public:
  struct Options {
    std::string origin;  ///< stands for the host when a request names none: "http://127.0.0.1:80"
    std::size_t pageSize = 100;
    std::optional<Credentials> credentials;        ///< when set, nothing is served without them
    std::optional<std::string> publicOrigin = {};  ///< when set, stands in all URLs
    std::chrono::milliseconds packageCheckInterval = std::chrono::seconds(1);
    std::function<void(const std::string&)> report = nullptr;  ///< see `PackageStore`
  };
  static constexpr std::size_t largestPageSize = 10'000;

  Router(std::vector<VenuePackage> packages, Options options);

  /// Any thread, any number at once.
  Response respond(const Request& request);

 private:
  struct Paged {
    std::string key;    // differs from that of all other collections
    std::string query;  // that leads to the collection, encoded
    const RecordCollection& records;
  };

  Response respondToAdmitted(const Request& request);
  Response collection(const Request& request, const Target& target, const PackageSet& packages);
  Response page(const Request& request, const Target& target, const Paged& paged);
  Response file(const Request& request, const Target& target, const PackageSet& packages);
  std::shared_ptr<const Representation> compressedFile(const PackageFile& file);
  std::string originFor(const Request& request) const;

  Options options_;
  PackageStore packages_;
  RepresentationCache cache_;
};

}  // namespace orivanta::server
