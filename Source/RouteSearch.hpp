// The route search: A* over a navigation graph (Hart, Nilsson and Raphael, 1968), with a frontier
// that settles ties and requeueing in its own way.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Source/Distance.hpp"
#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"
#include "Source/Route.hpp"

namespace orivanta {

/// The route from any of the start nodes to any of the destinations; nothing when either list is
/// empty or no destination can be reached. Deterministic: the same lists and graph give the same
/// path, ties included. Any thread; several searches of one graph may run at once.
///
/// Positions of the graph's nodes are those at the first search; `setGraph` has them read again.
/// Lists may name nodes that the graph does not have.
///
/// Weights below 0, weights that are no number and positions that are not finite, which only an
/// application can set, get the same search at less speed. Around a circle of negative weight it
/// does not end. A node that is first reached over an edge whose weight is no number keeps that way
/// in, however short another one is.
ORIVANTA_API std::optional<Route> searchRoute(const NodeList& nodes, const NodeList& destinations,
                                              const NavigationGraph& graph);

/// The path of `searchRoute`.
ORIVANTA_API std::optional<NodeList> AStar(const NodeList& nodes, const NodeList& destinations,
                                           const NavigationGraph& graph);

}  // namespace orivanta
