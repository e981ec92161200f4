// The order of nodes in memory: neighbors have similar numbers.
#pragma once

#include "Source/NodeList.hpp"

namespace orivanta {

/// Returns the nodes sorted by map, and along a Hilbert curve within each map. Coordinates that are
/// not finite are allowed.
NodeList inSpatialOrder(const NodeList& nodes);

}  // namespace orivanta
