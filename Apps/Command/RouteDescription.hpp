// A route as lines for people and as JSON: its directions, floors, rides, length and cost.
#pragma once

#include <boost/json/object.hpp>
#include <memory>
#include <optional>
#include <string>

#include "Source/Fwd.hpp"
#include "Source/Guidance/PathWalk.hpp"

namespace orivanta::command {

struct RouteDescription {
  std::shared_ptr<const Directions> directions;
  PathWalk walk;
  std::optional<double> lengthMetres;  ///< if the venue tells its units per meter
};

/// For a route through the venue, which has been loaded.
RouteDescription describeRoute(const Venue& venue, std::shared_ptr<const Directions> directions);

/// The description as lines, and as JSON.
std::string routeText(const RouteDescription& route);
boost::json::object routeJson(const RouteDescription& route);

}  // namespace orivanta::command
