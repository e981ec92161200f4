#include "Apps/Import/Network/Tidy.hpp"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

struct Crossing {
  std::size_t first;
  std::size_t second;
  double ofFirst;  // the share of the way
  double ofSecond;
  Point position;
};

std::vector<Crossing> crossingsOf(const Draft& draft) {
  std::vector<Segment> lines;
  lines.reserve(draft.edges.size());
  for (const DraftEdge& edge : draft.edges)
    lines.push_back({draft.nodes[edge.from].position, draft.nodes[edge.to].position});
  const SegmentGrid grid(lines, 0.0);
  // More lines in one place are damage, which must not take quadratic time.
  std::size_t testsLeft = 20'000'000 + 200 * lines.size();
  std::vector<Crossing> crossings;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (draft.edges[i].inRoom || draft.edges[i].isDirect) continue;
    std::set<std::size_t> met;
    const Point a = lines[i].a;
    const Point b = lines[i].b;
    grid.anyAlong(lines[i], [&](std::size_t other) {
      if (testsLeft == 0) return true;
      --testsLeft;
      if (other > i && !draft.edges[other].inRoom && !draft.edges[other].isDirect &&
          package::cross(a, b, lines[other].a, lines[other].b))
        met.insert(other);
      return false;
    });
    for (const std::size_t other : met) {
      const auto [c, d] = lines[other];
      const double across = package::cross(b - a, d - c);
      if (across == 0.0) continue;
      const double share = package::cross(c - a, d - c) / across;
      const double shareOfOther = package::cross(c - a, b - a) / across;
      crossings.push_back({i, other, share, shareOfOther, a + (b - a) * share});
    }
  }
  return crossings;
}

// Near the end of a line, the node there serves for the crossing.
Index nodeFor(const Crossing& crossing, Draft& draft) {
  constexpr double same = 0.05;
  for (const std::size_t line : {crossing.first, crossing.second})
    for (const Index end : {draft.edges[line].from, draft.edges[line].to})
      if (draft.nodes[end].isMovable() &&
          package::distance(draft.nodes[end].position, crossing.position) < same)
        return end;
  return draft.addWay(crossing.position);
}

// Merges nodes along short lines, and remembers into which node each was merged.
class Merger {
 public:
  Merger(const Space& space, Draft& draft)
      : space_(space),
        draft_(draft),
        into_(draft.nodes.size()),
        hasStub_(draft.nodes.size()),
        neighbors_(draft.nodes.size()) {
    for (Index i = 0; i < into_.size(); ++i) into_[i] = i;
    for (const DraftEdge& edge : draft.edges) {
      neighbors_[edge.from].push_back(edge.to);
      neighbors_[edge.to].push_back(edge.from);
      if (edge.stub) hasStub_[edge.from] = hasStub_[edge.to] = true;
    }
  }

  void run() {
    constexpr double near = 0.9;
    std::vector<std::tuple<double, Index, Index>> lines;
    for (const DraftEdge& edge : draft_.edges)
      if (draft_.lengthOf(edge) < near)
        lines.emplace_back(draft_.lengthOf(edge), edge.from, edge.to);
    std::sort(lines.begin(), lines.end());
    for (const auto& [length, from, to] : lines) {
      const Index a = nodeOf(from);
      const Index b = nodeOf(to);
      if (a == b || !draft_.nodes[a].isMovable() || !draft_.nodes[b].isMovable()) continue;
      if (package::distance(at(a), at(b)) >= near) continue;
      // The node in front of a door, or else that with more lines, stays if it can.
      const bool firstStays = std::pair(hasStub_[a], neighbors_[a].size()) >=
                              std::pair(hasStub_[b], neighbors_[b].size());
      if (!merge(firstStays ? b : a, firstStays ? a : b))
        merge(firstStays ? a : b, firstStays ? b : a);
    }
    for (DraftEdge& edge : draft_.edges) {
      edge.from = nodeOf(edge.from);
      edge.to = nodeOf(edge.to);
    }
  }

 private:
  Point at(Index node) const { return draft_.nodes[node].position; }

  Index nodeOf(Index node) {
    while (into_[node] != node) node = into_[node] = into_[into_[node]];
    return node;
  }

  bool merge(Index gone, Index staying) {
    for (const Index other : neighbors_[gone]) {
      const Index node = nodeOf(other);
      if (node != staying && node != gone &&
          !sees(space_, draft_.nodes[staying], draft_.nodes[node]))
        return false;
    }
    into_[gone] = staying;
    hasStub_[staying] = hasStub_[staying] || hasStub_[gone];
    std::vector<Index>& all = neighbors_[staying];
    all.insert(all.end(), neighbors_[gone].begin(), neighbors_[gone].end());
    return true;
  }

  const Space& space_;
  Draft& draft_;
  std::vector<Index> into_;
  std::vector<bool> hasStub_;
  std::vector<std::vector<Index>> neighbors_;
};

}  // namespace

void joinCrossings(Draft& draft) {
  std::vector<std::vector<std::pair<double, Index>>> points(draft.edges.size());
  for (const Crossing& crossing : crossingsOf(draft)) {
    const Index node = nodeFor(crossing, draft);
    points[crossing.first].emplace_back(crossing.ofFirst, node);
    points[crossing.second].emplace_back(crossing.ofSecond, node);
  }
  const std::size_t count = points.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (points[i].empty()) continue;
    std::sort(points[i].begin(), points[i].end());
    const DraftEdge edge = draft.edges[i];
    std::vector<Index> way{edge.from};
    for (const auto& [share, node] : points[i])
      if (node != way.back() && node != edge.to) way.push_back(node);
    way.push_back(edge.to);
    draft.edges[i].to = way[1];
    for (std::size_t k = 1; k + 1 < way.size(); ++k)
      draft.edges.push_back({way[k], way[k + 1], edge.oneWay, edge.stub, false});
  }
}

void mergeNearNodes(const Space& space, Draft& draft) { Merger(space, draft).run(); }

void removeDeadEnds(Draft& draft) {
  std::vector<std::vector<Index>> edges(draft.nodes.size());
  for (Index i = 0; i < draft.edges.size(); ++i)
    for (const Index end : {draft.edges[i].from, draft.edges[i].to}) edges[end].push_back(i);
  std::vector<std::size_t> counts;
  counts.reserve(edges.size());
  for (const std::vector<Index>& of : edges) counts.push_back(of.size());
  std::vector<bool> removed(draft.edges.size());
  for (Index first = 0; first < draft.nodes.size(); ++first)
    for (Index node = first; counts[node] == 1 && draft.nodes[node].isMovable();) {
      const auto edge = std::find_if(edges[node].begin(), edges[node].end(),
                                     [&](Index i) { return !removed[i]; });
      removed[*edge] = true;
      --counts[node];
      node = draft.edges[*edge].from == node ? draft.edges[*edge].to : draft.edges[*edge].from;
      --counts[node];
    }
  std::vector<DraftEdge> kept;
  for (Index i = 0; i < draft.edges.size(); ++i)
    if (!removed[i]) kept.push_back(draft.edges[i]);
  draft.edges = std::move(kept);
}

void removeUnused(Draft& draft) {
  std::set<std::pair<Index, Index>> known;
  std::erase_if(draft.edges, [&](const DraftEdge& edge) {
    if (edge.from == edge.to) return true;
    const auto key = edge.oneWay
                         ? std::pair(edge.from, edge.to)
                         : std::pair(std::min(edge.from, edge.to), std::max(edge.from, edge.to));
    return !known.insert(key).second;
  });
  std::vector<bool> used(draft.nodes.size());
  for (const DraftEdge& edge : draft.edges) used[edge.from] = used[edge.to] = true;
  std::vector<Index> moved(draft.nodes.size());
  std::vector<DraftNode> kept;
  for (Index i = 0; i < draft.nodes.size(); ++i) {
    moved[i] = static_cast<Index>(kept.size());
    if (used[i] || !draft.nodes[i].isMovable()) kept.push_back(std::move(draft.nodes[i]));
  }
  draft.nodes = std::move(kept);
  for (DraftEdge& edge : draft.edges) {
    edge.from = moved[edge.from];
    edge.to = moved[edge.to];
  }
}

}  // namespace orivanta::importer
