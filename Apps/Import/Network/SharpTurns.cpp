#include "Apps/Import/Network/SharpTurns.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/Turns.hpp"

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

constexpr double sharpCosine = -0.6;  // the cosine
constexpr double leastSaved = 1.0;    // meters
constexpr double longestCut = 15.0;
constexpr std::size_t mostLinesToCut = 64;  // at a node; all pairs of them may be turns

class Cutter {
 public:
  Cutter(const Space& space, Draft& draft)
      : space_(space), draft_(draft), edges_(draft.nodes.size()) {
    for (Index i = 0; i < draft.edges.size(); ++i) {
      edges_[draft.edges[i].from].push_back(i);
      edges_[draft.edges[i].to].push_back(i);
    }
  }

  void run() {
    const std::vector<std::vector<Turn>> turns = countTurns(draft_);
    for (Index node = 0; node < turns.size(); ++node)
      if (draft_.nodes[node].isMovable() && edges_[node].size() <= mostLinesToCut)
        for (const Turn& turn : turns[node]) cut(node, turn);
  }

 private:
  Point at(Index node) const { return draft_.nodes[node].position; }

  std::optional<Index> edgeBetween(Index a, Index b) const {
    for (const Index i : edges_[a])
      if (draft_.edges[i].from == a ? draft_.edges[i].to == b
                                    : draft_.edges[i].from == b && draft_.edges[i].to == a)
        return i;
    return {};
  }

  // With the longest line in sight, from neighbor to neighbor or nearer to the node.
  void cut(Index node, const Turn& turn) {
    const Point toFirst = at(turn.from) - at(node);
    const Point toSecond = at(turn.to) - at(node);
    const double first = package::length(toFirst);
    const double second = package::length(toSecond);
    if (first == 0.0 || second == 0.0 ||
        -package::dot(toFirst, toSecond) > sharpCosine * first * second)
      return;
    const auto firstEdge = edgeBetween(node, turn.from);
    const auto secondEdge = edgeBetween(node, turn.to);
    if (!firstEdge || !secondEdge) return;
    const double shorter = std::min(first, second);
    const auto reach = [&](Index end, Point way, double length, double far) {
      return far < length ? wayAt(at(node) + way * (far / length)) : draft_.nodes[end];
    };
    for (const auto& [ofFirst, ofSecond] :
         {std::pair(first, second), std::pair(shorter, shorter),
          std::pair(0.7 * shorter, 0.7 * shorter), std::pair(0.4 * shorter, 0.4 * shorter)}) {
      const DraftNode a = reach(turn.from, toFirst, first, ofFirst);
      const DraftNode b = reach(turn.to, toSecond, second, ofSecond);
      const double length = package::distance(a.position, b.position);
      if (length > longestCut || ofFirst + ofSecond - length < leastSaved || !sees(space_, a, b))
        continue;
      const Index from = ofFirst < first ? divide(*firstEdge, a) : turn.from;
      const Index to = ofSecond < second ? divide(*secondEdge, b) : turn.to;
      draft_.addEdge(from, to, false);
      return;
    }
  }

  static DraftNode wayAt(Point position) {
    return {position, NodeKind::way, {}, {}, 0.0, 0.0, 0.0, {}};
  }

  // Later turns at the far end of the edge stay as they are.
  Index divide(Index edge, const DraftNode& point) {
    const Index node = draft_.addNode(point);
    edges_.emplace_back();
    DraftEdge rest = draft_.edges[edge];
    draft_.edges[edge].to = node;
    rest.from = node;
    edges_[rest.to].push_back(static_cast<Index>(draft_.edges.size()));
    edges_[node] = {edge, static_cast<Index>(draft_.edges.size())};
    draft_.edges.push_back(rest);
    return node;
  }

  const Space& space_;
  Draft& draft_;
  std::vector<std::vector<Index>> edges_;  // of each node
};

}  // namespace

void cutSharpTurns(const Space& space, Draft& draft) { Cutter(space, draft).run(); }

}  // namespace orivanta::importer
