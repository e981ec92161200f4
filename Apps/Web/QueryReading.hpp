// Requests for guidance as the page writes them.
#pragma once

#include <boost/json/object.hpp>
#include <string>
#include <string_view>

#include "Apps/Planning/PlanQuery.hpp"

namespace orivanta::web {

/// A request for guidance.
struct Query {
  planning::PlanQuery plan;        ///< what to plan
  std::string language = "en";     ///< of the instructions: a tag or a list of tags
  bool visitsClosedStops = false;  ///< see `guidance::Request`
};

/// Parses a JSON object. Throws `planning::QueryError` if the text is not one.
boost::json::object objectIn(std::string_view text);

/// Parses a JSON object whose members are named as those of `PlanQuery`, except `speed` for
/// `walkingSpeed`, `language` and `visitsClosedStops`. All are optional; `from`, `to`, `via` and
/// `closed` are arrays of texts. Throws `planning::QueryError` if the text is not such an object.
Query queryOf(std::string_view text);

/// Returns an error as `kind` and `text`.
boost::json::object errorJson(const planning::QueryError& error);

}  // namespace orivanta::web
