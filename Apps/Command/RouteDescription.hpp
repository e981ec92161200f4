// Describes a route as text and as JSON: its directions, floors, rides, length and cost.
#pragma once

#include <boost/json/object.hpp>
#include <memory>
#include <optional>
#include <string>

#include "Source/Fwd.hpp"
#include "Source/Guidance/PathWalk.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

struct RouteDescription {
  std::shared_ptr<const Directions> directions;
  PathWalk walk;
  std::optional<double> lengthMeters;  ///< empty if the units per meter are unknown
  std::optional<double> seconds;       ///< expected walking and riding time; empty like the length
};

/// Describes a route through a loaded venue.
RouteDescription describeRoute(const Venue& venue, std::shared_ptr<const Directions> directions);

/// Return the description as lines of text and as JSON.
std::string routeText(const RouteDescription& route);
boost::json::object routeJson(const RouteDescription& route);

}  // namespace orivanta::command
