#include "Source/Guidance/Steps/OnFoot.hpp"

#include <functional>
#include <queue>
#include <tuple>
#include <unordered_set>

namespace orivanta::guidance {

std::vector<ReachedNode> nodesOnFoot(const GuideNetwork& network,
                                     std::span<const Node* const> starts, double meters) {
  using Index = GuideNetwork::Index;
  using Entry = std::tuple<double, Index, std::size_t>;  // meters, node, start
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> waiting;
  for (std::size_t i = 0; i < starts.size(); ++i)
    if (const auto found = network.find(starts[i])) waiting.emplace(0.0, *found, i);
  std::unordered_set<Index> done;
  std::vector<ReachedNode> reached;
  while (!waiting.empty()) {
    const auto [distance, node, start] = waiting.top();
    waiting.pop();
    if (!done.insert(node).second) continue;
    reached.push_back({network.node(node).get(), distance, start});
    const GuideNetwork::Vertex& vertex = network.vertex(node);
    for (Index i = vertex.firstArc; i != vertex.endArc; ++i) {
      const GuideNetwork::Arc& arc = network.arcs()[i];
      const double next = distance + arc.meters;
      if (arc.connector == GuideNetwork::none && next <= meters && !done.contains(arc.target))
        waiting.emplace(next, arc.target, start);
    }
  }
  return reached;
}

}  // namespace orivanta::guidance
