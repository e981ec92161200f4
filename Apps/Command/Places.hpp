// Finds the ends of a route by their names on the command line.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

/// One end of a route.
struct RouteEnd {
  NodeList nodes;                   ///< without duplicates
  std::shared_ptr<Location> place;  ///< the location of all nodes; null if there is no single one
};

/// Returns the places that the texts name together; see `placesNamed`. The venue must be loaded.
///
/// Throws `CommandError`: `notFound` if a text names nothing, `wrongUse` if a text is empty or
/// names several locations. The message lists them.
RouteEnd findRouteEnd(const Venue& venue, const std::vector<std::string>& texts);

}  // namespace orivanta::command
