#include "Apps/Server/PackageVenue.hpp"

#include <future>
#include <utility>

#include "Apps/Server/PackageError.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Platform/Network/UrlTransport.hpp"
#include "Source/Orivanta.hpp"
#include "Source/RawData.hpp"
#include "Source/Venue.hpp"

namespace orivanta::server {

namespace {

// Answers the requests of a load with whole collections of the package.
class PackageTransport : public network::UrlTransport {
 public:
  PackageTransport(std::shared_ptr<const VenuePackage> package, std::vector<std::string> languages,
                   std::string origin)
      : package_(std::move(package)),
        languages_(std::move(languages)),
        origin_(std::move(origin)) {}

  void start(network::UrlRequest request, Completion completed) override {
    network::UrlAnswer answer{{request.url, 404, {}}, {}};
    const auto target = parseTarget(request.url.absoluteString());
    if (target && target->path.size() == 2)
      if (const RecordCollection* records = package_->collection(target->path[1])) {
        answer.response.statusCode = 200;
        answer.body =
            records->page(0, records->size(), origin_, records->languagesAmong(languages_));
      }
    completed(std::move(answer));
  }

 private:
  const std::shared_ptr<const VenuePackage> package_;
  const std::vector<std::string> languages_;
  const std::string origin_;
};

}  // namespace

std::shared_ptr<Venue> loadPackage(const std::shared_ptr<const VenuePackage>& package,
                                   const std::vector<std::string>& languages,
                                   const std::string& origin) {
  RecordCollection venues;
  venues.append(package->venue, package->filesPath());
  const auto records = RawData::parse(venues.page(0, 1, origin, venues.languagesAmong(languages)));
  const auto venue = Venue::make(records->arrayValue().front());
  if (!venue) throw PackageError(package->source.string() + ": the venue's record is incomplete");
  const WebApiSession session(origin + "/1/", "", "", "en", nullptr, defaultLoadBytes,
                              std::make_shared<PackageTransport>(package, languages, origin));
  const auto loaded = std::make_shared<std::promise<VenueLoadReport>>();
  const auto load = loadVenueReporting(
      session, venue, false,
      {.ended = [loaded](VenueLoadReport report) { loaded->set_value(std::move(report)); }});
  const VenueLoadReport report = loaded->get_future().get();
  if (!report.complete || !report.failures.empty())
    throw PackageError(
        package->source.string() + ": the venue cannot be loaded" +
        (report.failures.empty() ? std::string() : ": " + report.failures.front().reason));
  return report.venue;
}

}  // namespace orivanta::server
