// The ends of a route, as they are named on the command line.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Floors.hpp"

namespace orivanta::command {

/// One end of a route.
struct RouteEnd {
  NodeList nodes;                   ///< each once
  std::shared_ptr<Location> place;  ///< the location of all nodes; null if there is no single one
};

/// The places that the texts name together; see `placesNamed`. The venue has been loaded.
///
/// Throws `CommandError`: `notFound` for a text that names nothing, `wrongUse` for an empty text
/// and for one that names several locations. The message lists them.
RouteEnd findRouteEnd(const Venue& venue, const std::vector<std::string>& texts);

}  // namespace orivanta::command
