#include "Apps/Import/Network/Shortcuts.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <tuple>
#include <utility>
#include <vector>

#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/WayLengths.hpp"

namespace orivanta::importer {

namespace {

using Index = std::uint32_t;

constexpr std::size_t sectors = 16;
constexpr double farFromLines = 2.0;  // meters
constexpr double slightTurn = 0.8;    // the cosine
constexpr double mostGap = 0.6;
constexpr double nearStop = 2.5;  // along the lines

// Which lines are added, in meters.
struct Rule {
  double longest;
  double factor;  // by which the way is longer at least
  double detour;  // the least difference
  bool meetsLines;

  double tolerated(double straight) const { return std::max(factor * straight, straight + detour); }
};

constexpr Rule acrossSpaces{40.0, 1.4, 10.0, true};
// Routes that go back and forth in front of stairs or an elevator look wrong.
constexpr Rule pastStops{25.0, 1.4, 3.0, false};
constexpr Rule fromStops{15.0, 1.25, 1.0, false};
constexpr Rule toStops{15.0, 1.1, 1.0, false};
constexpr Rule betweenEnds{15.0, 1.25, 1.0, false};

class Shortcuts {
 public:
  Shortcuts(const Space& space, Draft& draft)
      : space_(space),
        draft_(draft),
        points_(pointsOf(draft), 0.0),
        lengths_(stepsFor(draft)),
        isWay_(draft.nodes.size()) {
    std::vector<bool> isOnLine(draft.nodes.size());
    for (const DraftEdge& edge : draft.edges) {
      if (edge.inRoom) continue;
      link(edge.from, edge.to);
      if (!edge.stub) isOnLine[edge.from] = isOnLine[edge.to] = true;
    }
    for (Index i = 0; i < draft.nodes.size(); ++i) {
      isWay_[i] = draft.nodes[i].isMovable();
      if (isEnd(i) && !isOnLine[i]) lengths_.setEnd(i);
    }
    findEnds(isOnLine);
  }

  void run() {
    std::vector<Index> ways;
    for (Index i = 0; i < isWay_.size(); ++i)
      if (isWay_[i]) ways.push_back(i);
    const auto isWay = [&](Index node) { return isWay_[node]; };
    const auto isAnyEnd = [&](Index node) { return isEnd(node) && isBesideSpace(node); };
    addFrom(ways, acrossSpaces, isWay);
    addFrom(waysNearStops(), pastStops, isWay);
    addFrom(stops_, toStops, isAnyEnd);
    addFrom(ends_, betweenEnds, isAnyEnd);
    addFrom(stops_, fromStops, isWay);
  }

 private:
  using Candidate = std::tuple<double, Index, Index>;

  // What routes begin and end at.
  bool isEnd(Index i) const { return draft_.nodes[i].kind != NodeKind::way; }

  bool isStop(Index i) const { return draft_.nodes[i].kind == NodeKind::boarding; }

  // Lines at ends farther from the space could pass the corner of a wall.
  bool isBesideSpace(Index i) const { return draft_.nodes[i].gap < mostGap; }

  // Finds the ends that are not beside a line, and the stops among them. The door of a stop is a
  // stop, too.
  void findEnds(const std::vector<bool>& isOnLine) {
    for (const DraftEdge& edge : draft_.edges)
      for (const auto& [end, next] :
           {std::pair(edge.from, edge.to), std::pair(edge.to, edge.from)}) {
        if (edge.inRoom && isStop(next) && lengths_.hasLines(end)) stops_.push_back(end);
        if (!isEnd(end) || edge.inRoom || !edge.stub) continue;
        if (isStop(end)) stops_.push_back(end);
        if (draft_.lengthOf(edge) > farFromLines || !isOnLine[next]) ends_.push_back(end);
      }
    for (std::vector<Index>* all : {&ends_, &stops_}) {
      std::erase_if(*all, [&](Index end) { return !isBesideSpace(end); });
      sortUnique(*all);
    }
  }

  static void sortUnique(std::vector<Index>& all) {
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
  }

  std::vector<Index> waysNearStops() {
    std::vector<Index> near;
    for (const Index stop : stops_) {
      lengths_.search(stop, nearStop);
      points_.eachNear(at(stop), nearStop, [&](std::size_t i) {
        if (isWay_[i] && lengths_.to(i) <= nearStop) near.push_back(static_cast<Index>(i));
      });
    }
    sortUnique(near);
    return near;
  }

  // The shortest lines first, because they can make longer ones needless.
  template <typename IsTarget>
  void addFrom(const std::vector<Index>& nodes, const Rule& rule, const IsTarget& isTarget) {
    std::vector<Candidate> candidates;
    for (const Index node : nodes) collect(node, rule, isTarget, candidates);
    std::sort(candidates.begin(), candidates.end());
    for (const auto& [length, from, to] : candidates) {
      lengths_.search(from, rule.tolerated(length), to);
      if (lengths_.isUsedUp()) return;
      if (lengths_.to(to) <= rule.tolerated(length)) continue;
      if (turnsAtEnd(from, to, length) || turnsAtEnd(to, from, length)) continue;
      draft_.edges.push_back({from, to, false, false, false, !rule.meetsLines});
      link(from, to);
    }
  }

  // Whether ways from `from` would lead to `end` and on in another direction, as from door to door
  // on both sides of a corridor.
  bool turnsAtEnd(Index from, Index end, double length) {
    if (!lengths_.isEnd(end)) return false;
    const Point way = at(end) - at(from);
    const auto& lines = lengths_.linesOf(end);
    return std::any_of(lines.begin(), lines.end(), [&](const auto& line) {
      const auto [next, beyond] = line;
      const Point on = at(static_cast<Index>(next)) - at(end);
      if (next == from || !lengths_.isEnd(next) ||
          package::dot(way, on) > slightTurn * length * beyond)
        return false;
      lengths_.search(from, length + beyond, next);
      return lengths_.to(next) > length + beyond;
    });
  }

  // Real storeys need less than 200 steps for each node; thousands of doors in one place need more.
  static std::size_t stepsFor(const Draft& draft) {
    constexpr std::size_t least = 100'000;
    constexpr std::size_t perNode = 2'000;
    return least + perNode * draft.nodes.size();
  }

  static std::vector<Segment> pointsOf(const Draft& draft) {
    std::vector<Segment> points;
    points.reserve(draft.nodes.size());
    for (const DraftNode& node : draft.nodes) points.push_back({node.position, node.position});
    return points;
  }

  Point at(Index node) const { return draft_.nodes[node].position; }

  void link(Index from, Index to) {
    lengths_.addLine(from, to, package::distance(at(from), at(to)));
  }

  // Near its ends, too, the line crosses no border but that in which an end lies.
  bool isInSight(const DraftNode& from, const DraftNode& to) const {
    const double length = package::distance(from.position, to.position);
    const auto skipped = [&](const DraftNode& end) { return (0.02 + 1.5 * end.gap) / length; };
    const Point way = to.position - from.position;
    return length > 0.0 && sees(space_, from, to) &&
           space_.isFree(from.position + way * skipped(from), to.position - way * skipped(to), 0.0);
  }

  // In each direction, the nearest node in sight to which the way is long.
  template <typename IsTarget>
  void collect(Index from, const Rule& rule, const IsTarget& isTarget,
               std::vector<Candidate>& candidates) {
    if (!lengths_.hasLines(from) || lengths_.isUsedUp()) return;
    lengths_.search(from, rule.tolerated(rule.longest));
    std::vector<std::pair<double, Index>> near;
    points_.eachNear(at(from), rule.longest, [&](std::size_t i) {
      const auto to = static_cast<Index>(i);
      const double length = package::distance(at(from), at(to));
      if (to != from && length <= rule.longest && isTarget(to) && lengths_.hasLines(to) &&
          lengths_.to(to) > rule.tolerated(length))
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
      if (!isInSight(draft_.nodes[from], draft_.nodes[to])) continue;
      done[sector] = true;
      candidates.emplace_back(length, std::min(from, to), std::max(from, to));
    }
  }

  const Space& space_;
  Draft& draft_;
  SegmentGrid points_;
  WayLengths lengths_;
  std::vector<bool> isWay_;
  std::vector<Index> ends_;
  std::vector<Index> stops_;
};

}  // namespace

void addShortcuts(const Space& space, Draft& draft) { Shortcuts(space, draft).run(); }

}  // namespace orivanta::importer
