#include "Apps/Import/Network/Shortcuts.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <numeric>
#include <queue>
#include <tuple>
#include <utility>

#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

constexpr double longest = 40.0;  // meters
constexpr std::size_t sectors = 16;
constexpr double unknown = std::numeric_limits<double>::infinity();

constexpr double usualDetour = 10.0;
// Routes that go back and forth in front of stairs or an elevator look wrong.
constexpr double detourAtStop = 2.0;

double tolerated(double straight, double detour) {
  return std::max(1.25 * straight, straight + detour);
}

class Shortcuts {
 public:
  Shortcuts(const Space& space, Draft& draft)
      : space_(space),
        draft_(draft),
        neighbors_(draft.nodes.size()),
        points_(pointsOf(draft), 0.0),
        costs_(draft.nodes.size(), unknown) {
    for (const DraftEdge& edge : draft.edges) link(edge.from, edge.to);
  }

  void run() {
    std::vector<Index> all(draft_.nodes.size());
    std::iota(all.begin(), all.end(), Index{0});
    addFrom(all, usualDetour);
    std::vector<Index> atStops;
    for (const DraftEdge& edge : draft_.edges) {
      if (draft_.nodes[edge.from].kind == NodeKind::boarding) atStops.push_back(edge.to);
      if (draft_.nodes[edge.to].kind == NodeKind::boarding) atStops.push_back(edge.from);
    }
    addFrom(atStops, detourAtStop);
  }

 private:
  using Candidate = std::tuple<double, Index, Index>;

  void addFrom(const std::vector<Index>& nodes, double detour) {
    std::vector<Candidate> candidates;
    for (const Index node : nodes) collect(node, detour, candidates);
    std::sort(candidates.begin(), candidates.end());
    for (const auto& [length, from, to] : candidates) {
      search(from, tolerated(length, detour), to);
      if (costs_[to] != unknown) continue;
      draft_.addEdge(from, to, false);
      link(from, to);
    }
  }

  static std::vector<Segment> pointsOf(const Draft& draft) {
    std::vector<Segment> points;
    points.reserve(draft.nodes.size());
    for (const DraftNode& node : draft.nodes) points.push_back({node.position, node.position});
    return points;
  }

  Point at(Index node) const { return draft_.nodes[node].position; }

  void link(Index from, Index to) {
    const double length = package::distance(at(from), at(to));
    neighbors_[from].emplace_back(to, length);
    neighbors_[to].emplace_back(from, length);
  }

  // Leaves the lengths of all ways of at most `limit` meters in `costs_`.
  void search(Index from, double limit, Index goal) {
    for (const Index node : touched_) costs_[node] = unknown;
    touched_.clear();
    using Entry = std::pair<double, Index>;
    std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
    const auto reach = [&](Index node, double cost) {
      if (cost > limit || cost >= costs_[node]) return;
      if (costs_[node] == unknown) touched_.push_back(node);
      costs_[node] = cost;
      open.emplace(cost, node);
    };
    reach(from, 0.0);
    while (!open.empty()) {
      const auto [cost, node] = open.top();
      open.pop();
      if (node == goal) return;
      if (cost > costs_[node]) continue;
      for (const auto& [next, length] : neighbors_[node]) reach(next, cost + length);
    }
  }

  // In each direction, the nearest node in sight to which the way is long.
  void collect(Index from, double detour, std::vector<Candidate>& candidates) {
    if (!draft_.nodes[from].isMovable() || neighbors_[from].empty()) return;
    constexpr Index nowhere = 0xffffffff;
    search(from, tolerated(longest, detour), nowhere);
    std::vector<std::pair<double, Index>> near;
    points_.eachNear(at(from), longest, [&](std::size_t i) {
      const auto to = static_cast<Index>(i);
      const double length = package::distance(at(from), at(to));
      if (to != from && length <= longest && draft_.nodes[to].isMovable() &&
          !neighbors_[to].empty() && costs_[to] > tolerated(length, detour))
        near.emplace_back(length, to);
    });
    std::sort(near.begin(), near.end());
    std::array<bool, sectors> done{};
    std::array<int, sectors> tried{};
    for (const auto& [length, to] : near) {
      const Point way = at(to) - at(from);
      const double turn = std::atan2(way.y, way.x) / (2.0 * std::numbers::pi) + 0.5;
      const auto sector = std::min(static_cast<std::size_t>(turn * sectors), sectors - 1);
      constexpr int mostTried = 8;
      if (done[sector] || ++tried[sector] > mostTried) continue;
      if (!sees(space_, draft_.nodes[from], draft_.nodes[to])) continue;
      done[sector] = true;
      candidates.emplace_back(length, std::min(from, to), std::max(from, to));
    }
  }

  const Space& space_;
  Draft& draft_;
  std::vector<std::vector<std::pair<Index, double>>> neighbors_;
  SegmentGrid points_;
  std::vector<double> costs_;
  std::vector<Index> touched_;
};

}  // namespace

void addShortcuts(const Space& space, Draft& draft) { Shortcuts(space, draft).run(); }

}  // namespace orivanta::importer
