#include "Tests/Support/ListRouteSearch.hpp"

#include <algorithm>
#include <unordered_map>

#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/LiteralPriorityQueue.hpp"

namespace orivanta::test {

namespace {

struct Reached {
  double cost = 0.0;
  Node* predecessor = nullptr;
};
using ReachedNodes = std::unordered_map<Node*, Reached>;

NodeList pathTo(Node* node, const ReachedNodes& reached) {
  NodeList path;
  for (; node != nullptr; node = reached.at(node).predecessor)
    path.push_back(node->shared_from_this());
  std::reverse(path.begin(), path.end());
  return path;
}

}  // namespace

std::optional<Route> searchRouteWithList(const NodeList& nodes, const NodeList& destinations,
                                         const NavigationGraph& graph) {
  if (nodes.empty() || destinations.empty()) return std::nullopt;
  LiteralPriorityQueue<Node*, double> frontier;
  ReachedNodes reached;
  for (const auto& start : nodes) {
    frontier.put(start.get(), *getShortestEuclideanDistance(*start, destinations));
    reached[start.get()] = {};
  }
  for (std::size_t taken = 1; const auto next = frontier.next(); ++taken) {
    Node* const current = *next;
    const Reached& here = reached[current];
    const auto isCurrent = [&](const auto& node) { return node.get() == current; };
    if (std::any_of(destinations.begin(), destinations.end(), isCurrent))
      return Route{pathTo(current, reached), here.cost, taken};
    for (const Edge& edge : graph[*current]) {
      Node* const target = edge.node().get();
      const double cost = here.cost + edge.weight();
      const auto [known, isNew] = reached.try_emplace(target);
      if (!isNew && !(cost < known->second.cost)) continue;
      known->second = {cost, current};
      frontier.put(target, cost + *getShortestEuclideanDistance(*target, destinations));
    }
  }
  return std::nullopt;
}

}  // namespace orivanta::test
