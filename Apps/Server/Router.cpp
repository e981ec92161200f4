#include "Apps/Server/Router.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <system_error>
#include <utility>

#include "Apps/Server/ContentNegotiation.hpp"
#include "Apps/Server/ContentPolicies.hpp"
#include "Apps/Server/FileResponse.hpp"
#include "Apps/Server/Gzip.hpp"
#include "Apps/Server/Paging.hpp"

namespace orivanta::server {

namespace {

constexpr std::size_t cacheBytes = 64U << 20U;
// Slow clients could otherwise hold one page per connection.
constexpr std::size_t mostBytesInUse = 256U << 20U;

// The client's languages that the collection has, best first.
std::vector<RecordCollection::Language> preferredLanguages(const Request& request,
                                                           const RecordCollection& records) {
  if (records.languages().empty()) return {};
  return records.languagesAmong(languagesToLookUp(request.acceptLanguage));
}

bool isCollectionName(std::string_view name) {
  return std::find(collectionNames.begin(), collectionNames.end(), name) != collectionNames.end();
}

Representation represented(std::string body, bool gzipAccepted) {
  std::string entityTag = entityTagOf(body);
  if (!gzipAccepted || body.size() < smallestCompressed) return {std::move(body), entityTag};
  return {gzipped(body), gzipTag(std::move(entityTag)), true};
}

// Returns the last element of a header: the one that the proxy itself appended.
std::string_view lastOf(std::string_view list) {
  const std::size_t start = list.find_last_of(", \t");
  return list.substr(start == std::string_view::npos ? 0 : start + 1);
}

}  // namespace

Router::Router(std::vector<VenuePackage> packages, Options options)
    : options_(std::move(options)),
      packages_(std::move(packages), options_.packageCheckInterval, options_.report),
      closures_(options_.report),
      cache_(cacheBytes, mostBytesInUse),
      webPage_(options_.web, cache_) {}

Response Router::respond(const Request& request) {
  Response response = respondWithBody(request);
  const bool bodyOmitted = request.method == "HEAD";
  if (response.deferred && bodyOmitted)
    response.deferred =
        [start = std::move(response.deferred)](std::function<void(Response)> completed) {
          start([completed = std::move(completed)](Response computed) {
            computed.bodyOmitted = true;
            completed(std::move(computed));
          });
        };
  response.bodyOmitted = bodyOmitted;
  return response;
}

Response Router::respondWithBody(const Request& request) {
  auto target = parseTarget(request.target);
  if (target && webPage_.contains(*target))
    return webPage_.respond(request, *target, originFor(request));
  const bool hasKey = target && takeKey(*target);
  if (!options_.credentials || hasKey || options_.credentials->admit(request.authorization))
    return respondToAdmitted(request, target);
  Response response = errorResponse(401, "A user name and a password are required.");
  response.headers.emplace_back("WWW-Authenticate", R"(Basic realm="venues", charset="UTF-8")");
  return response;
}

// Removes the key of a request for a file. Returns false if there is none, or a wrong one.
bool Router::takeKey(Target& target) const {
  auto& path = target.path;
  if (!options_.credentials || path.size() < 5 || path[0] != "1" || path[1] != "key" ||
      path[3] != "1" || path[4] != "files" || !options_.credentials->admitFile(path[2]))
    return false;
  path.erase(path.begin(), path.begin() + 3);
  return true;
}

Response Router::respondToAdmitted(const Request& request, const std::optional<Target>& target) {
  if (auto refusal = methodRefusal(request)) return std::move(*refusal);
  if (!target) return errorResponse(400, "The request target is malformed.");
  const auto packages = packages_.current();
  const auto& path = target->path;
  if (path.size() == 2 && path[0] == "1" && path[1] == "venue")
    return page(request, *target,
                {fmt::format("venues {}", packages->number), {}, packages->venues});
  if (path.size() == 2 && path[0] == "1" && isCollectionName(path[1]))
    return collection(request, *target, *packages);
  if (path.size() == 2 && path[0] == "1" && path[1] == "closure")
    return closures(request, *target, *packages);
  if (path.size() == 2 && path[0] == "1" && path[1] == "route")
    return route(request, *target, *packages);
  if (path.size() > 3 && path[0] == "1" && path[1] == "files")
    return file(request, *target, *packages);
  return errorResponse(404, "Nothing exists at this path. The venues are at /1/venue.");
}

// Returns the package that the query names. Sets the error response if there is none.
std::shared_ptr<const VenuePackage> Router::packageOf(const Target& target,
                                                      const PackageSet& packages, Response& error) {
  const auto slug = target.queryValue("venue");
  if (!slug) {
    error = errorResponse(400, "The query must contain venue=SLUG.");
    return nullptr;
  }
  auto venue = packages.package(*slug);
  if (!venue)
    error = errorResponse(404, fmt::format("There is no venue \"{}\".", percentEncoded(*slug)));
  return venue;
}

Response Router::collection(const Request& request, const Target& target,
                            const PackageSet& packages) {
  Response error;
  const auto venue = packageOf(target, packages, error);
  if (!venue) return error;
  const std::string& name = target.path[1];
  return page(request, target,
              {fmt::format("{} {}", name, venue->number), "venue=" + percentEncoded(venue->slug),
               *venue->collection(name)});
}

Response Router::closures(const Request& request, const Target& target,
                          const PackageSet& packages) {
  Response error;
  const auto venue = packageOf(target, packages, error);
  if (!venue) return error;
  const auto list = closures_.current(*venue);
  if (!list) return unavailableResponse("The closures cannot be read at the moment.");
  return page(request, target,
              {fmt::format("closure {} {}", venue->number, list->number),
               "venue=" + percentEncoded(venue->slug), list->records});
}

Response Router::route(const Request& request, const Target& target, const PackageSet& packages) {
  Response response;
  const auto venue = packageOf(target, packages, response);
  if (!venue) return response;
  const auto list = closures_.current(*venue);
  if (!list) return unavailableResponse("The closures cannot be read at the moment.");
  const auto language = target.queryValue("language");
  GuideService::Job job{venue, list->closures, target,
                        languagesToLookUp(language ? *language : request.acceptLanguage)};
  response.deferred = [this, job = std::move(job)](std::function<void(Response)> completed) {
    guides_.start(job, std::move(completed));
  };
  return response;
}

Response Router::page(const Request& request, const Target& target, const Paged& paged) {
  const RecordCollection& records = paged.records;
  const auto paging = Paging::parse(target, records.size(), options_.pageSize, largestPageSize);
  if (!paging) return errorResponse(400, "page and per-page must be positive integers.");
  if (paging->page > paging->pageCount)
    return errorResponse(404, fmt::format("The last page is {}.", paging->pageCount));
  const std::string origin = originFor(request);
  const std::string fileOrigin =
      options_.credentials ? fmt::format("{}/1/key/{}", origin, options_.credentials->fileKey())
                           : origin;
  const auto languages = preferredLanguages(request, records);
  const bool gzip = acceptsGzip(request.acceptEncoding);
  const std::size_t first = paging->firstRecord();
  const std::size_t count = std::min(paging->pageSize, records.size() - first);
  const auto key = fmt::format("{} {} {} {} {} {}", paged.key, first, count,
                               records.dependsOnOrigin() ? fileOrigin : std::string(), gzip,
                               fmt::join(languages, " "));
  const auto representation = cache_.get(
      key, [&] { return represented(records.page(first, count, fileOrigin, languages), gzip); });
  if (!representation) return unavailableResponse("Too many pages are being sent.");
  Response response = representationResponse(request, representation, "application/json",
                                             "Accept-Encoding, Accept-Language");
  response.headers.emplace_back("Link", linkHeader(origin, target, paged.query, *paging));
  return response;
}

Response Router::file(const Request& request, const Target& target, const PackageSet& packages) {
  const auto venue = packages.package(target.path[2]);
  const std::vector<std::string> segments(target.path.begin() + 3, target.path.end());
  if (venue == nullptr) return errorResponse(404, "The file does not exist.");
  std::error_code shortage;
  auto opened = PackageFile::open(venue->folder, segments, shortage);
  if (shortage) return unavailableResponse("The file cannot be opened at the moment.");
  if (!opened) return errorResponse(404, "The file does not exist.");
  const MediaType type = mediaTypeOf(segments.back());
  Response response = fileResponse(request, std::move(*opened), type, cache_);
  if (type.name == "image/svg+xml") response.setHeader("Content-Security-Policy", picturePolicy);
  return response;
}

std::string Router::originFor(const Request& request) const {
  if (options_.publicOrigin) return *options_.publicOrigin;
  const std::string_view protocol = lastOf(request.forwardedProtocol);
  const std::string_view forwarded = lastOf(request.forwardedHost);
  const std::string_view host = isHost(forwarded) ? forwarded : std::string_view(request.host);
  const bool isSecure = boost::algorithm::iequals(protocol, "https");
  if (!isHost(host)) return options_.origin;
  return fmt::format("{}://{}", isSecure ? "https" : "http", host);
}

}  // namespace orivanta::server
