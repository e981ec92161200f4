#include "Apps/Web/Loading.hpp"

#include <algorithm>
#include <boost/json/serialize.hpp>
#include <map>
#include <memory>
#include <utility>

#include "Apps/Web/PageFunctions.hpp"
#include "Apps/Web/QueryReading.hpp"
#include "Apps/Web/VenueJson.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Venue.hpp"

namespace orivanta::web {

namespace json = boost::json;

namespace {

using Loads = std::map<int, std::shared_ptr<LoadHandle>>;

Loads& running() {
  static auto& instance = *new Loads;
  return instance;
}

std::string_view wordOf(LoadProblem problem) {
  switch (problem) {
    case LoadProblem::noAnswer:
      return "noAnswer";
    case LoadProblem::refused:
      return "refused";
    case LoadProblem::notFound:
      return "notFound";
    case LoadProblem::otherStatus:
      return "otherStatus";
    case LoadProblem::unusable:
      return "unusable";
    case LoadProblem::insecure:
      return "insecure";
    case LoadProblem::endless:
      return "endless";
    case LoadProblem::tooLarge:
      break;
  }
  return "tooLarge";
}

json::array failuresJson(const std::vector<LoadFailure>& failures) {
  json::array array;
  for (const LoadFailure& failure : failures)
    array.push_back(json::object{{"collection", failure.collection},
                                 {"kind", wordOf(failure.problem)},
                                 {"status", failure.statusCode},
                                 {"reason", failure.reason}});
  return array;
}

void end(int number, const json::object& report) {
  running().erase(number);
  const std::string text = json::serialize(report);
  orivantaLoadEnded(number, text.data(), text.size());
}

auto progressOf(int number) {
  return [number](const LoadProgress& progress) {
    orivantaLoadProgressed(number, static_cast<double>(progress.collectionsDone),
                           static_cast<double>(progress.collections),
                           static_cast<double>(progress.pages),
                           static_cast<double>(progress.bytes));
  };
}

void loadVenue(int number, const WebApiSession& session, const std::shared_ptr<Venue>& venue,
               bool accessible) {
  running()[number] = loadVenueReporting(
      session, venue, accessible,
      {.progressed = progressOf(number), .ended = [number](const VenueLoadReport& report) {
         json::object result = {{"failures", failuresJson(report.failures)}};
         if (report.complete && report.venue && report.venue->nodes)
           result["venue"] = VenueTable::shared().add(report.venue);
         end(number, result);
       }});
}

json::array venuesJson(const std::vector<std::shared_ptr<Venue>>& venues) {
  json::array array;
  for (const auto& venue : venues) array.push_back(venueJson(*venue));
  return array;
}

void listVenues(int number, const WebApiSession& session, const json::object& settings) {
  running()[number] = loadVenuesReporting(
      session, {.ended = [number, session, settings](const VenueListReport& report) {
        const json::value* slug = settings.if_contains("slug");
        if (slug == nullptr) {
          end(number,
              {{"venues", venuesJson(report.venues)}, {"failures", failuresJson(report.failures)}});
          return;
        }
        const auto found =
            std::find_if(report.venues.begin(), report.venues.end(),
                         [&](const auto& venue) { return *venue->slug == slug->as_string(); });
        if (found == report.venues.end()) {
          end(number, {{"failures", failuresJson(report.failures)}});
          return;
        }
        const json::value* accessible = settings.if_contains("accessible");
        loadVenue(number, session, *found, accessible != nullptr && *accessible == true);
      }});
}

std::string textAt(const json::object& object, const char* key, const char* otherwise) {
  const json::value* value = object.if_contains(key);
  return value != nullptr && value->is_string() ? std::string(value->as_string()) : otherwise;
}

}  // namespace

int startLoad(std::string_view settings, PackageTransport::Texts package) try {
  const json::object object = objectIn(settings);
  if (const json::value* slug = object.if_contains("slug"); slug != nullptr && !slug->is_string())
    return 0;
  std::shared_ptr<network::UrlTransport> transport;
  if (!package.empty()) transport = std::make_shared<PackageTransport>(std::move(package));
  const WebApiSession session(textAt(object, "endpoint", "http://package.invalid/1/"),
                              textAt(object, "username", ""), textAt(object, "password", ""),
                              textAt(object, "languages", "en"), nullptr, defaultLoadBytes,
                              transport);
  static int last = 0;
  const int number = ++last;
  listVenues(number, session, object);
  return number;
} catch (const planning::QueryError&) {
  return 0;
}

void cancelLoad(int number) {
  const auto found = running().find(number);
  if (found == running().end()) return;
  const auto load = std::move(found->second);
  running().erase(found);
  load->cancel();
}

}  // namespace orivanta::web
