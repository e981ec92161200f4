// The functions that the page calls. Only web/src/engine.ts calls them, which has the same list.
//
// Texts are UTF-8 with a length. A text or an array that a function returns belongs to the module
// and is valid until the next call: its address is returned, its length is that of
// `orivantaResultLength`. A function that stops the program ends the module: every later call
// fails.
#include <emscripten/emscripten.h>

#include <boost/json/serialize.hpp>
#include <exception>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Apps/Planning/PlanJson.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Web/Loading.hpp"
#include "Apps/Web/Map/MapTable.hpp"
#include "Apps/Web/PageFunctions.hpp"
#include "Apps/Web/QueryReading.hpp"
#include "Apps/Web/Results.hpp"
#include "Apps/Web/RouteNumbers.hpp"
#include "Apps/Web/VenueJson.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Apps/Web/VisitorJson.hpp"
#include "Platform/Foundation/Browser/Turns.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Guidance/Narrator.hpp"

namespace {

namespace json = boost::json;
namespace web = orivanta::web;

const char* result(const json::value& value) { return web::textResult(json::serialize(value)); }

bool isTurnAsked = false;  // for one that has not begun

void requestTurn() {
  if (!std::exchange(isTurnAsked, true)) orivantaRequestTurn();
}

web::PackageTransport::Texts& packageTexts() {
  static auto& instance = *new web::PackageTransport::Texts;
  return instance;
}

}  // namespace

extern "C" {

// Called once, before all others.
EMSCRIPTEN_KEEPALIVE void orivantaBegin() {
  orivanta::foundation::setTurnRequest(requestTurn);
  orivanta::foundation::mainQueue::setWake(requestTurn);
}

// Runs background tasks and those of the main queue. The page calls it when `orivantaRequestTurn`
// has asked for it.
EMSCRIPTEN_KEEPALIVE void orivantaRunTurn() {
  isTurnAsked = false;
  orivanta::foundation::runTurn();
  orivanta::foundation::mainQueue::drain();
  web::MapTable::shared().requestFrames();
}

// The length of the last result: bytes of a text, or numbers.
EMSCRIPTEN_KEEPALIVE std::size_t orivantaResultLength() { return web::resultLength(); }

// Adds a text to the package of the next load. Its name is that of a resource of the API, such as
// "node". Returns 0 if there is not enough memory.
EMSCRIPTEN_KEEPALIVE int orivantaAddToPackage(const char* name, std::size_t nameLength,
                                              const char* text, std::size_t length) try {
  packageTexts().insert_or_assign(std::string(name, nameLength), std::string(text, length));
  return 1;
} catch (const std::bad_alloc&) {
  return 0;
}

// Removes the texts of a package that is not loaded.
EMSCRIPTEN_KEEPALIVE void orivantaDropPackage() { packageTexts().clear(); }

// Starts a load and returns its number, see `startLoad`.
EMSCRIPTEN_KEEPALIVE int orivantaStartLoad(const char* settings, std::size_t length) {
  return web::startLoad({settings, length}, std::exchange(packageTexts(), {}));
}

EMSCRIPTEN_KEEPALIVE void orivantaCancelLoad(int load) { web::cancelLoad(load); }

// Releases a venue and its map.
EMSCRIPTEN_KEEPALIVE void orivantaRemoveVenue(int venue) {
  web::MapTable::shared().removeMapOf(web::VenueTable::shared().at(venue));
  web::VenueTable::shared().remove(venue);
}

// Returns the records of a venue, see `recordsJson`.
EMSCRIPTEN_KEEPALIVE const char* orivantaRecords(int venue) {
  return result(web::recordsJson(web::VenueTable::shared().at(venue)));
}

// Returns numbers, see `nodeNumbers`.
EMSCRIPTEN_KEEPALIVE const double* orivantaNodes(int venue) {
  return web::numbersResult(web::nodeNumbers(web::VenueTable::shared().at(venue)));
}

// Returns numbers, see `routeNumbers`.
EMSCRIPTEN_KEEPALIVE const double* orivantaRoute(int venue, const std::int32_t* from,
                                                 std::size_t fromCount, const std::int32_t* to,
                                                 std::size_t toCount) {
  return web::numbersResult(
      web::routeNumbers(web::VenueTable::shared().at(venue), {from, fromCount}, {to, toCount}));
}

// Adds a language of instructions from a message file, see `Narrator::addLanguage`. Returns 0 if
// the file is damaged.
EMSCRIPTEN_KEEPALIVE int orivantaAddLanguage(const char* tag, std::size_t tagLength,
                                             const char* file, std::size_t length) {
  return orivanta::guidance::Narrator::addLanguage({file, length}, {tag, tagLength}) ? 1 : 0;
}

// Plans a route. Takes a JSON object, see `queryOf`, and returns that of `planJson`, or `error`
// with `kind`
// ("invalid", "notFound" or "ambiguous") and `text`.
EMSCRIPTEN_KEEPALIVE const char* orivantaPlan(int venue, const char* text, std::size_t length) {
  try {
    web::LoadedVenue& loaded = web::VenueTable::shared().at(venue);
    const web::Query query = web::queryOf({text, length});
    auto request = orivanta::planning::requestOf(loaded.venue(), query.plan);
    request.visitsClosedStops = query.visitsClosedStops;
    return result(orivanta::planning::planJson(loaded.guide(), loaded.guide().plan(request),
                                               request,
                                               orivanta::guidance::Narrator(query.language)));
  } catch (const orivanta::planning::QueryError& error) {
    return result(json::object{{"error", web::errorJson(error)}});
  }
}

// Returns what matches a text, see `foundJson`.
EMSCRIPTEN_KEEPALIVE const char* orivantaSearch(int venue, const char* text, std::size_t length) {
  return result(web::foundJson(web::VenueTable::shared().at(venue), {text, length}));
}

// Answers what lists and cards ask, see `visitorJson`.
EMSCRIPTEN_KEEPALIVE const char* orivantaVisitor(int venue, const char* text, std::size_t length) {
  return result(web::visitorJson(web::VenueTable::shared().at(venue), {text, length}));
}
}
