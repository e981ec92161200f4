// Straight distances between nodes, for the edges of a graph and the route search.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// Returns the straight distance in three dimensions, in the venue's units, without the maps'
/// elevations.
ORIVANTA_API double getEuclideanDistance(const Node& node, const Node& destination);

/// Returns the greatest distance to any of the destinations, despite the function's name: with
/// several destinations the search heads for the farthest. Returns nothing if the list is empty.
ORIVANTA_API std::optional<double> getShortestEuclideanDistance(const Node& node,
                                                                const NodeList& destinations);

}  // namespace orivanta
