// The functions that the page calls for routes and instructions. See Exports.cpp.
#include <emscripten/emscripten.h>

#include <cstdint>

#include "Apps/Planning/PlanJson.hpp"
#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Web/QueryReading.hpp"
#include "Apps/Web/Results.hpp"
#include "Apps/Web/RouteNumbers.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Source/Guidance/Narrator.hpp"

namespace web = orivanta::web;

extern "C" {

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
    return web::jsonResult(
        orivanta::planning::planJson(loaded.guide(), loaded.guide().plan(request), request,
                                     orivanta::guidance::Narrator(query.language)));
  } catch (const orivanta::planning::QueryError& error) {
    return web::jsonResult(boost::json::object{{"error", web::errorJson(error)}});
  }
}
}
