// The route search with a sorted list as its frontier: what the library's search is held against.
#pragma once

#include <optional>

#include "Source/RouteSearch.hpp"

namespace orivanta::test {

/// Same contract as `searchRoute`, any weights and positions.
std::optional<Route> searchRouteWithList(const NodeList& nodes, const NodeList& destinations,
                                         const NavigationGraph& graph);

}  // namespace orivanta::test
