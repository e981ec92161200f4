#include "Tests/Support/ListRouteSearch.hpp"

#include <algorithm>
#include <unordered_map>

#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/LiteralPriorityQueue.hpp"

namespace orivanta::test {

namespace {

using Predecessors = std::unordered_map<Node*, Node*>;

NodeList pathTo(Node* node, const Predecessors& predecessors) {
  NodeList path{node->shared_from_this()};
  for (auto entry = predecessors.find(node); entry != predecessors.end();
       entry = predecessors.find(entry->second))
    path.push_back(entry->second->shared_from_this());
  std::reverse(path.begin(), path.end());
  return path;
}

}  // namespace

std::optional<Route> searchRouteWithList(const NodeList& nodes, const NodeList& destinations,
                                         const NavigationGraph& graph) {
  if (nodes.empty() || destinations.empty()) return std::nullopt;
  LiteralPriorityQueue<Node*, double> frontier;
  Predecessors predecessors;
  std::unordered_map<Node*, double> costs;
  for (const auto& start : nodes) {
    frontier.put(start.get(), *getShortestEuclideanDistance(*start, destinations));
    costs[start.get()] = 0.0;
  }
  for (std::size_t taken = 1; const auto next = frontier.next(); ++taken) {
    Node* const current = *next;
    const double& costSoFar = costs.at(current);
    const auto isCurrent = [&](const auto& node) { return node.get() == current; };
    if (std::any_of(destinations.begin(), destinations.end(), isCurrent))
      return Route{pathTo(current, predecessors), costSoFar, taken};
    for (const Edge& edge : graph[*current]) {
      Node* const target = edge.node().get();
      const double cost = costSoFar + edge.weight();
      const auto [known, isNew] = costs.try_emplace(target, cost);
      if (!isNew && !(cost < known->second)) continue;
      known->second = cost;
      frontier.put(target, cost + *getShortestEuclideanDistance(*target, destinations));
      predecessors[target] = current;
    }
  }
  return std::nullopt;
}

}  // namespace orivanta::test
