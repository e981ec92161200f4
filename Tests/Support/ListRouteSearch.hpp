// The route search with a sorted list as its queue, as a reference for the library's search.
#pragma once

#include <optional>

#include "Source/RouteSearch.hpp"

namespace orivanta::test {

/// Has the same contract as `searchRoute`, for any weights and positions.
std::optional<Route> searchRouteWithList(const NodeList& nodes, const NodeList& destinations,
                                         const NavigationGraph& graph);

}  // namespace orivanta::test
