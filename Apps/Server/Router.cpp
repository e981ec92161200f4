#include "Apps/Server/Router.hpp"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <utility>

#include "Apps/Server/ContentNegotiation.hpp"
#include "Apps/Server/Gzip.hpp"
#include "Apps/Server/Paging.hpp"

namespace orivanta::server {

namespace {

constexpr std::size_t cacheBytes = 64U << 20U;
// Smaller texts do not shrink enough to be worth it.
constexpr std::size_t smallestCompressed = 1024;
// Larger files are sent straight from the disk.
constexpr std::size_t largestInMemory = 32U << 20U;

// The languages of the collection that the client reads, best first.
std::vector<RecordCollection::Language> preferredLanguages(const Request& request,
                                                           const RecordCollection& records) {
  std::vector<RecordCollection::Language> preferred;
  if (records.languages().empty()) return preferred;
  for (const std::string& tag : languagesToLookUp(request.acceptLanguage)) {
    const auto& known = records.languages();
    const auto language = std::find(known.begin(), known.end(), tag);
    if (language != known.end())
      preferred.push_back(static_cast<RecordCollection::Language>(language - known.begin()));
  }
  return preferred;
}

bool isCollectionName(std::string_view name) {
  return std::find(collectionNames.begin(), collectionNames.end(), name) != collectionNames.end();
}

Representation represented(std::string body, bool gzipAccepted, std::string entityTag) {
  Representation representation{std::move(body), std::move(entityTag)};
  if (!gzipAccepted || representation.body.size() < smallestCompressed) return representation;
  representation.body = gzipped(representation.body);
  representation.entityTag.insert(representation.entityTag.size() - 1, "-gzip");
  representation.gzip = true;
  return representation;
}

Representation represented(std::string body, bool gzipAccepted) {
  std::string entityTag = entityTagOf(body);
  return represented(std::move(body), gzipAccepted, std::move(entityTag));
}

}  // namespace

Router::Router(std::vector<VenuePackage> packages, Options options)
    : packages_(std::move(packages)), options_(std::move(options)), cache_(cacheBytes) {
  for (const VenuePackage& package : packages_) venues_.append(package.venue, package.filesPath());
}

Response Router::respond(const Request& request) {
  Response response;
  if (options_.credentials && !options_.credentials->admit(request.authorization)) {
    response = errorResponse(401, "A user name and a password are required.");
    response.headers.emplace_back("WWW-Authenticate", R"(Basic realm="venues", charset="UTF-8")");
  } else {
    response = respondToAdmitted(request);
  }
  response.bodyOmitted = request.method == "HEAD";
  return response;
}

Response Router::respondToAdmitted(const Request& request) {
  if (request.method != "GET" && request.method != "HEAD") {
    Response response = errorResponse(405, "Only GET and HEAD are served.");
    response.headers.emplace_back("Allow", "GET, HEAD");
    return response;
  }
  const auto target = parseTarget(request.target);
  if (!target) return errorResponse(400, "The target of the request is malformed.");
  const auto& path = target->path;
  if (path.size() == 2 && path[0] == "1" && path[1] == "venue")
    return page(request, *target, venues_);
  if (path.size() == 2 && path[0] == "1" && isCollectionName(path[1]))
    return collection(request, *target);
  if (path.size() > 3 && path[0] == "1" && path[1] == "files") return file(request, *target);
  return errorResponse(404, "There is nothing here; the venues are at /1/venue.");
}

Response Router::collection(const Request& request, const Target& target) {
  const auto slug = target.queryValue("venue");
  if (!slug) return errorResponse(400, "The query names no venue (venue=SLUG).");
  const VenuePackage* venue = package(*slug);
  if (venue == nullptr)
    return errorResponse(404, fmt::format("There is no venue \"{}\".", percentEncoded(*slug)));
  return page(request, target, *venue->collection(target.path[1]));
}

Response Router::page(const Request& request, const Target& target,
                      const RecordCollection& records) {
  const auto paging = Paging::parse(target, records.size(), options_.pageSize, largestPageSize);
  if (!paging) return errorResponse(400, "page and per-page are numbers from 1 on.");
  if (paging->page > paging->pageCount)
    return errorResponse(404, fmt::format("The last page is {}.", paging->pageCount));
  const std::string origin = originFor(request);
  const auto languages = preferredLanguages(request, records);
  const bool gzip = acceptsGzip(request.acceptEncoding);
  const auto key = fmt::format("{} {} {} {} {} {}", fmt::ptr(&records), paging->page,
                               paging->pageSize, origin, gzip, fmt::join(languages, " "));
  const auto representation = cache_.get(key, [&] {
    return represented(records.page(paging->firstRecord(), paging->pageSize, origin, languages),
                       gzip);
  });
  Response response = representationResponse(request, representation, "application/json",
                                             "Accept-Encoding, Accept-Language");
  response.headers.emplace_back("Link", linkHeader(origin, target, *paging));
  return response;
}

Response Router::file(const Request& request, const Target& target) {
  const VenuePackage* venue = package(target.path[2]);
  const std::vector<std::string> segments(target.path.begin() + 3, target.path.end());
  auto opened = venue == nullptr ? std::nullopt : PackageFile::open(venue->folder, segments);
  if (!opened) return errorResponse(404, "There is no such file.");
  const MediaType type = mediaTypeOf(segments.back());
  const std::string entityTag = fmt::format("\"{}\"", opened->version());
  if (type.isText && opened->size() <= largestInMemory) {
    const bool gzip = acceptsGzip(request.acceptEncoding);
    const auto key = fmt::format("{} {} {}", opened->version(), venue->slug, gzip);
    const auto representation =
        cache_.get(key, [&] { return represented(opened->read(), gzip, entityTag); });
    return representationResponse(request, representation, type.name, "Accept-Encoding");
  }
  const auto unread = std::make_shared<const Representation>(Representation{{}, entityTag});
  Response response = representationResponse(request, unread, type.name, {});
  response.text = nullptr;
  if (response.status == 200) response.file = std::move(opened);
  return response;
}

const VenuePackage* Router::package(std::string_view slug) const {
  const auto named = [&](const VenuePackage& package) { return package.slug == slug; };
  const auto entry = std::find_if(packages_.begin(), packages_.end(), named);
  return entry == packages_.end() ? nullptr : &*entry;
}

std::string Router::originFor(const Request& request) const {
  return isHost(request.host) ? "http://" + request.host : options_.origin;
}

}  // namespace orivanta::server
