#include "Source/RouteSearch.hpp"

#include <algorithm>
#include <unordered_map>

#include "Source/Graph/CompactGraph.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Routing/CompactRouteSearch.hpp"
#include "Source/Routing/PriorityQueue.hpp"

namespace orivanta {

namespace {

// The reference search over nodes, for graphs that the compact form does not support.
std::optional<Route> searchByDefinition(const NodeList& nodes, const NodeList& destinations,
                                        const NavigationGraph& graph) {
  PriorityQueue<std::shared_ptr<Node>, double> frontier;
  std::unordered_map<std::shared_ptr<Node>, std::shared_ptr<Node>> predecessors;
  std::unordered_map<std::shared_ptr<Node>, double> costs;
  for (const auto& start : nodes) {
    frontier.put(start, *getShortestEuclideanDistance(*start, destinations));
    costs[start] = 0.0;
  }
  for (std::size_t taken = 1; const auto current = frontier.next(); ++taken) {
    if (std::find(destinations.begin(), destinations.end(), *current) != destinations.end()) {
      Route route{{}, costs[*current], taken};
      for (auto node = *current; node; node = predecessors[node]) route.path.push_back(node);
      std::reverse(route.path.begin(), route.path.end());
      return route;
    }
    for (const Edge& edge : graph[**current]) {
      const double cost = costs[*current] + edge.weight();
      const auto known = costs.find(edge.node());
      if (known != costs.end() && !(cost < known->second)) continue;
      costs[edge.node()] = cost;
      frontier.put(edge.node(), cost + *getShortestEuclideanDistance(*edge.node(), destinations));
      predecessors[edge.node()] = *current;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<Route> searchRoute(const NodeList& nodes, const NodeList& destinations,
                                 const NavigationGraph& graph) {
  if (nodes.empty() || destinations.empty()) return std::nullopt;
  const auto compact = graph.compactGraph();
  if (!CompactRouteSearch::covers(*compact, nodes, destinations))
    return searchByDefinition(nodes, destinations, graph);
  return CompactRouteSearch(*compact, nodes, destinations).run();
}

std::optional<NodeList> AStar(const NodeList& nodes, const NodeList& destinations,
                              const NavigationGraph& graph) {
  auto route = searchRoute(nodes, destinations, graph);
  if (!route) return std::nullopt;
  return std::move(route->path);
}

}  // namespace orivanta
