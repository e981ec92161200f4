// The functions that the page calls for the search of places. See Exports.cpp.
#include <emscripten/emscripten.h>

#include "Apps/Web/Results.hpp"
#include "Apps/Web/VenueJson.hpp"
#include "Apps/Web/VenueTable.hpp"

namespace web = orivanta::web;

extern "C" {

// Returns what matches a text, see `foundJson`.
EMSCRIPTEN_KEEPALIVE const char* orivantaSearch(int venue, const char* text, std::size_t length) {
  return web::jsonResult(web::foundJson(web::VenueTable::shared().at(venue), {text, length}));
}
}
