#include "Apps/Import/Network/Smooth.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

constexpr double walkedOff = 1.0;      // meters between walls and moved nodes, where there is room
constexpr double farthestMove = 1.5;   // meters; nodes that would have to move farther stay
constexpr double straight = 0.995;     // the cosine of a turn that nobody notices
constexpr double sharp = 0.4;          // the cosine of a turn that stays
constexpr std::size_t mostLines = 64;  // at a node; all pairs of them are compared

class Smoother {
 public:
  Smoother(const Space& space, Draft& draft)
      : space_(space),
        draft_(draft),
        lines_(draft.nodes.size()),
        all_(draft.nodes.size()),
        isChanged_(draft.nodes.size(), 1) {
    for (const DraftEdge& edge : draft.edges)
      for (const auto& [node, other] :
           {std::pair(edge.from, edge.to), std::pair(edge.to, edge.from)}) {
        all_[node].push_back(other);
        if (!edge.stub && !edge.inRoom) lines_[node].push_back(other);
      }
  }

  void run() {
    constexpr int rounds = 4;
    for (int round = 0; round < rounds; ++round)
      for (Index node = 0; node < draft_.nodes.size(); ++node)
        if (draft_.nodes[node].isMovable() && std::exchange(isChanged_[node], 0) != 0) smooth(node);
  }

 private:
  Point at(Index node) const { return draft_.nodes[node].position; }

  // The neighbors between which the way through the node bends least.
  std::optional<std::pair<Index, Index>> straightestWay(Index node) const {
    std::optional<std::pair<Index, Index>> best;
    double bestTurn = sharp;
    const std::vector<Index>& lines = lines_[node];
    if (lines.size() > mostLines) return std::nullopt;
    for (std::size_t i = 0; i < lines.size(); ++i)
      for (std::size_t k = i + 1; k < lines.size(); ++k) {
        const Point in = at(node) - at(lines[i]);
        const Point out = at(lines[k]) - at(node);
        const double product = package::length(in) * package::length(out);
        if (product == 0.0) continue;
        const double turn = package::dot(in, out) / product;
        if (turn <= bestTurn) continue;
        bestTurn = turn;
        best.emplace(lines[i], lines[k]);
      }
    if (bestTurn > straight) return std::nullopt;
    return best;
  }

  void smooth(Index node) {
    const auto way = straightestWay(node);
    if (!way) return;
    const Point old = at(node);
    const Point from = at(way->first);
    const Point to = at(way->second);
    const Point foot = from + (to - from) * package::nearestFraction(from, to, old);
    if (package::distance(old, foot) > farthestMove) return;
    const double clearance = space_.clearance(old, walkedOff);
    for (const double share : {1.0, 0.5, 0.25}) {
      draft_.nodes[node].position = old + (foot - old) * share;
      if (space_.clearance(at(node), walkedOff) >= clearance && seesAll(node)) {
        isChanged_[node] = 1;
        for (const Index other : all_[node]) isChanged_[other] = 1;
        return;
      }
    }
    draft_.nodes[node].position = old;
  }

  bool seesAll(Index node) const {
    return space_.contains(at(node)) &&
           std::all_of(all_[node].begin(), all_[node].end(), [&](Index other) {
             return sees(space_, draft_.nodes[node], draft_.nodes[other]);
           });
  }

  const Space& space_;
  Draft& draft_;
  std::vector<std::vector<Index>> lines_;  // of each node: the nodes to which lines lead
  std::vector<std::vector<Index>> all_;    // the same with stubs
  std::vector<std::uint8_t> isChanged_;    // of each node: it or one of those has moved meanwhile
};

}  // namespace

void smoothBends(const Space& space, Draft& draft) { Smoother(space, draft).run(); }

}  // namespace orivanta::importer
