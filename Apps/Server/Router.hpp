// Maps requests to responses: the paths of the web API, without connections.
#pragma once

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Server/ClosureStore.hpp"
#include "Apps/Server/Credentials.hpp"
#include "Apps/Server/GuideService.hpp"
#include "Apps/Server/Message.hpp"
#include "Apps/Server/PackageStore.hpp"
#include "Apps/Server/RepresentationCache.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Apps/Server/VenuePackage.hpp"
#include "Apps/Server/WebPage.hpp"

namespace orivanta::server {

/// Serves GET and HEAD requests for:
///
/// - `/1/venue`: the venues, in the order of the packages;
/// - `/1/map`, `/1/location`, `/1/category`, `/1/node`, `/1/vortex`, `/1/polygon`, each with
///   `?venue=SLUG`: a collection of a venue;
/// - `/1/closure?venue=SLUG`: what the operator has closed, from the package's closure.json;
/// - `/1/route?venue=SLUG&from=PLACE&to=PLACE`: a route with instructions, see Docs/RouteApi.md;
/// - `/1/files/SLUG/...`: the files of a package; with credentials, also
///   `/1/key/KEY/1/files/SLUG/...`, which records name and which needs no account;
/// - all paths that do not begin with `/1`: the web page, see `WebPage`.
///
/// Collections are paged: `page` (from 1) and `per-page` select a page, and a `Link` header names
/// the others. References from records to files become absolute URLs. Their origin is the
/// configured one, else the one named by a trusted proxy, else the host of the request. All other
/// requests are answered with an error in JSON. Files are opened for every request; packages are
/// read again when they are replaced.
class Router {
 public:
  struct Options {
    std::string origin;  ///< replaces the host of a request that has none: "http://127.0.0.1:80"
    std::size_t pageSize = 100;
    /// If set, required of every request except those for the web page.
    std::optional<Credentials> credentials;
    std::optional<std::string> publicOrigin = {};  ///< if set, used in all URLs
    std::chrono::milliseconds packageCheckInterval = std::chrono::seconds(1);
    std::function<void(const std::string&)> report = nullptr;  ///< see `PackageStore`
    std::optional<std::filesystem::path> web = {};             ///< the folder of the web page
  };
  static constexpr std::size_t largestPageSize = 10'000;

  /// Throws `std::invalid_argument` if there is no web page in its folder.
  Router(std::vector<VenuePackage> packages, Options options);

  /// Thread-safe. The response for a route is deferred.
  Response respond(const Request& request);

  /// Ends the computation of deferred responses. Their callbacks are not called afterwards.
  void stop() { guides_.stop(); }

 private:
  struct Paged {
    std::string key;    // unique among all collections
    std::string query;  // query that selects the collection, encoded
    const RecordCollection& records;
  };

  Response respondWithBody(const Request& request);
  Response respondToAdmitted(const Request& request, const std::optional<Target>& target);
  static std::shared_ptr<const VenuePackage> packageOf(const Target& target,
                                                       const PackageSet& packages, Response& error);
  Response collection(const Request& request, const Target& target, const PackageSet& packages);
  Response closures(const Request& request, const Target& target, const PackageSet& packages);
  Response page(const Request& request, const Target& target, const Paged& paged);
  Response route(const Request& request, const Target& target, const PackageSet& packages);
  Response file(const Request& request, const Target& target, const PackageSet& packages);
  std::string originFor(const Request& request) const;
  bool takeKey(Target& target) const;

  Options options_;
  PackageStore packages_;
  ClosureStore closures_;
  GuideService guides_;
  RepresentationCache cache_;
  WebPage webPage_;
};

}  // namespace orivanta::server
