// The functions that the page calls for lists and cards of places. See Exports.cpp.
#include <emscripten/emscripten.h>

#include "Apps/Web/Results.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Apps/Web/VisitorJson.hpp"

namespace web = orivanta::web;

extern "C" {

// Answers what lists and cards ask, see `visitorJson`.
EMSCRIPTEN_KEEPALIVE const char* orivantaVisitor(int venue, const char* text, std::size_t length) {
  return web::jsonResult(web::visitorJson(web::VenueTable::shared().at(venue), {text, length}));
}
}
