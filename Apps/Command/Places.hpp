// Finds the ends of a route by their names on the command line.
#pragma once

#include <string>
#include <vector>

#include "Source/Directions.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::command {

/// Returns the nodes that the texts name together, without duplicates; see `placesNamed`. The end
/// has a location only if it is the only text and names one. The venue must be loaded.
///
/// Throws `CommandError`: `notFound` if a text names nothing, `wrongUse` if a text is empty or
/// names several locations. The message lists them.
RouteEnd findRouteEnd(const Venue& venue, const std::vector<std::string>& texts);

}  // namespace orivanta::command
