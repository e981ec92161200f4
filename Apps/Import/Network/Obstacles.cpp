#include "Apps/Import/Network/Obstacles.hpp"

#include <utility>

#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

void moveOutOfObstacles(Draft& draft, const Space& space) {
  constexpr double largestObstacle = 3.0;
  for (DraftNode& node : draft.nodes) {
    if (!node.isMovable()) continue;
    if (const auto foot = space.foot(node.position, largestObstacle, nodeClearance))
      node.position = *foot;
  }
}

void avoidObstacles(Draft& draft, const Space& space, Ways& ways) {
  std::vector<DraftEdge> edges;
  for (const DraftEdge& edge : std::exchange(draft.edges, {})) {
    const DraftNode& from = draft.nodes[edge.from];
    const DraftNode& to = draft.nodes[edge.to];
    if (edge.inRoom || sees(space, from, to)) {
      edges.push_back(edge);
      continue;
    }
    const double longest = 4.0 * package::distance(from.position, to.position) + 10.0;
    const auto bends = ways.between(from, to, longest);
    if (!bends) continue;
    std::uint32_t last = edge.from;
    for (const Point bend : *bends) {
      const std::uint32_t next = draft.addWay(bend);
      edges.push_back({last, next, edge.oneWay, edge.stub, false});
      last = next;
    }
    edges.push_back({last, edge.to, edge.oneWay, edge.stub, false});
  }
  draft.edges = std::move(edges);
}

}  // namespace orivanta::importer
