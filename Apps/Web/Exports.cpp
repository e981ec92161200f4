// The functions that the page calls, for the module, loads and records. GuideExports.cpp,
// SearchExports.cpp, VisitorExports.cpp and Map/MapExports.cpp have those of single features.
// web/src/core.d.ts has the same list.
//
// Texts are UTF-8 with a length. A text or an array that a function returns belongs to the module
// and is valid until the next call: its address is returned, its length is that of
// `orivantaResultLength`. A function that stops the program ends the module: every later call
// fails.
#include <emscripten/emscripten.h>

#include <new>
#include <string>
#include <utility>

#include "Apps/Web/Loading.hpp"
#include "Apps/Web/Map/MapTable.hpp"
#include "Apps/Web/PageFunctions.hpp"
#include "Apps/Web/Results.hpp"
#include "Apps/Web/RouteNumbers.hpp"
#include "Apps/Web/VenueJson.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Platform/Foundation/Browser/Turns.hpp"
#include "Platform/Foundation/MainQueue.hpp"

namespace {

namespace web = orivanta::web;

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

// Ends the call into the module. Unlike an exception of JavaScript, C++ code cannot catch this.
EMSCRIPTEN_KEEPALIVE void orivantaTrap() { __builtin_trap(); }

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
  return web::jsonResult(web::recordsJson(web::VenueTable::shared().at(venue)));
}

// Returns numbers, see `nodeNumbers`.
EMSCRIPTEN_KEEPALIVE const double* orivantaNodes(int venue) {
  return web::numbersResult(web::nodeNumbers(web::VenueTable::shared().at(venue)));
}
}
