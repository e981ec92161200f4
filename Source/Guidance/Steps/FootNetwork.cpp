#include "Source/Guidance/Steps/FootNetwork.hpp"

#include <functional>
#include <queue>
#include <tuple>
#include <unordered_set>

#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta::guidance {

FootNetwork::FootNetwork(const Venue& venue, double metersPerUnit) : firstEdges_{0} {
  if (!venue.nodes || !venue.navigationGraph) return;
  for (const auto& node : *venue.nodes)
    if (node && indices_.try_emplace(node.get(), static_cast<std::uint32_t>(nodes_.size())).second)
      nodes_.push_back(node.get());
  for (const Node* node : nodes_) {
    for (const orivanta::Edge& edge : (*venue.navigationGraph)[*node]) {
      const auto target = indices_.find(edge.node().get());
      const double meters = edge.distance() * metersPerUnit;
      if (edge.vortex() || target == indices_.end() || !(meters >= 0.0)) continue;
      edges_.push_back({target->second, static_cast<float>(meters)});
    }
    firstEdges_.push_back(edges_.size());
  }
}

std::vector<FootNetwork::Reached> FootNetwork::within(std::span<const Node* const> starts,
                                                      double meters) const {
  using Entry = std::tuple<double, std::uint32_t, std::size_t>;  // meters, node, start
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> waiting;
  for (std::size_t i = 0; i < starts.size(); ++i)
    if (const auto found = indices_.find(starts[i]); found != indices_.end())
      waiting.emplace(0.0, found->second, i);
  std::unordered_set<std::uint32_t> done;
  std::vector<Reached> reached;
  while (!waiting.empty()) {
    const auto [distance, node, start] = waiting.top();
    waiting.pop();
    if (!done.insert(node).second) continue;
    reached.push_back({nodes_[node], distance, start});
    for (std::size_t i = firstEdges_[node]; i < firstEdges_[node + 1]; ++i) {
      const double next = distance + edges_[i].meters;
      if (next <= meters && !done.contains(edges_[i].target))
        waiting.emplace(next, edges_[i].target, start);
    }
  }
  return reached;
}

}  // namespace orivanta::guidance
