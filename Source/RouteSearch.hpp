// The route search: A* over a navigation graph (Hart, Nilsson and Raphael, 1968). Its frontier has
// special rules for ties and for nodes that are queued again.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Source/Distance.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"
#include "Source/Route.hpp"

namespace orivanta {

/// Searches a route from any of the start nodes to any of the destinations. Returns nothing if
/// either list is empty or no destination can be reached. Deterministic: the same lists and graph
/// give the same path, including ties. Thread-safe; several searches of one graph may run
/// concurrently.
///
/// The positions of the nodes are read at the first search and again after `setGraph`. The lists
/// may contain nodes that are not in the graph.
///
/// Negative or NaN weights and positions that are not finite, which only an application can set,
/// give the result of the same search, but slower. Does not terminate if the graph has a cycle of
/// negative weight. A node that is first reached over an edge with a NaN weight keeps that edge,
/// even if another one is shorter.
ORIVANTA_API std::optional<Route> searchRoute(const NodeList& nodes, const NodeList& destinations,
                                              const NavigationGraph& graph);

/// The path of `searchRoute`.
ORIVANTA_API std::optional<NodeList> AStar(const NodeList& nodes, const NodeList& destinations,
                                           const NavigationGraph& graph);

}  // namespace orivanta
