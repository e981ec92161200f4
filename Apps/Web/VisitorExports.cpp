// The functions that the page calls for lists and cards of places. See Exports.cpp.
#include <emscripten/emscripten.h>

#include <boost/json/object.hpp>
#include <boost/system/system_error.hpp>

#include "Apps/Web/QueryReading.hpp"
#include "Apps/Web/Results.hpp"
#include "Apps/Web/VenueTable.hpp"
#include "Apps/Web/VisitorJson.hpp"

namespace web = orivanta::web;

extern "C" {

// Answers what lists and cards ask, see `visitorJson`. Returns `error`, as `orivantaPlan`, if the
// request is malformed.
EMSCRIPTEN_KEEPALIVE const char* orivantaVisitor(int venue, const char* text, std::size_t length) {
  using orivanta::planning::QueryError;
  const auto refused = [](const QueryError& error) {
    return web::jsonResult(boost::json::object{{"error", web::errorJson(error)}});
  };
  try {
    return web::jsonResult(web::visitorJson(web::VenueTable::shared().at(venue), {text, length}));
  } catch (const QueryError& error) {
    return refused(error);
  } catch (const boost::system::system_error& error) {
    return refused(QueryError(QueryError::Kind::invalid, error.what()));
  }
}
}
