#include "Apps/Import/Network/Ways.hpp"

#include <algorithm>
#include <limits>
#include <queue>
#include <utility>

#include "Apps/Import/Network/Sight.hpp"

namespace orivanta::importer {

namespace {

constexpr std::uint32_t none = 0xffffffff;
constexpr double unknown = std::numeric_limits<double>::infinity();

std::vector<Segment> asSegments(const std::vector<Point>& points) {
  std::vector<Segment> segments;
  segments.reserve(points.size());
  for (const Point point : points) segments.push_back({point, point});
  return segments;
}

}  // namespace

Ways::Ways(const Skeleton& skeleton, const Space& space) : space_(space), skeleton_(&skeleton) {}

Ways::Ways(const Shape& shape, double leastClearance, const Space& space)
    : shape_(&shape), leastClearance_(leastClearance), space_(space) {}

const Skeleton& Ways::skeleton() {
  if (skeleton_ == nullptr) skeleton_ = &made_.emplace(makeSkeleton(*shape_, leastClearance_));
  return *skeleton_;
}

void Ways::prepare() {
  if (points_) return;
  const std::size_t count = skeleton().points.size();
  neighbors_ = skeleton_->neighbors();
  points_.emplace(asSegments(skeleton_->points), 0.0);
  costs_.assign(count, unknown);
  before_.assign(count, none);
}

DraftNode Ways::nodeAt(Index point) const {
  return {skeleton_->points[point], NodeKind::way, {}, {}, 0.0, 0.0, 0.0, {}};
}

// The nearest points in sight.
std::vector<Ways::Start> Ways::startsFor(const DraftNode& node) {
  prepare();
  constexpr std::size_t enough = 3;
  constexpr std::size_t mostTried = 60;
  std::vector<Start> seen;
  for (const double reach : {2.0, 6.0, 20.0, 60.0}) {
    std::vector<Start> near;
    points_->eachNear(node.position, reach, [&](std::size_t i) {
      const double distance = package::distance(skeleton_->points[i], node.position);
      if (distance <= reach) near.push_back({static_cast<Index>(i), distance});
    });
    std::sort(near.begin(), near.end(), [](const Start& a, const Start& b) {
      return a.distance != b.distance ? a.distance < b.distance : a.point < b.point;
    });
    if (near.size() > mostTried) near.resize(mostTried);
    for (const Start& start : near)
      if (seen.size() < enough && sees(space_, node, nodeAt(start.point))) seen.push_back(start);
    if (!seen.empty()) break;
  }
  return seen;
}

std::optional<Ways::Index> Ways::search(const DraftNode& from, double longest,
                                        const std::function<bool(Index)>& isGoal) {
  for (const Index point : touched_) {
    costs_[point] = unknown;
    before_[point] = none;
  }
  touched_.clear();
  using Entry = std::pair<double, Index>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  const auto reach = [&](Index point, double cost, Index before) {
    if (cost >= costs_[point] || cost > longest) return;
    if (costs_[point] == unknown) touched_.push_back(point);
    costs_[point] = cost;
    before_[point] = before;
    open.emplace(cost, point);
  };
  for (const Start& start : startsFor(from)) reach(start.point, start.distance, none);
  while (!open.empty()) {
    const auto [cost, point] = open.top();
    open.pop();
    if (cost > costs_[point]) continue;
    if (isGoal(point)) return point;
    for (const Index next : neighbors_[point])
      reach(next, cost + package::distance(skeleton_->points[point], skeleton_->points[next]),
            point);
  }
  return {};
}

// Leaves out every point that the one before it need not pass to see a later one.
std::vector<Point> Ways::straightened(const DraftNode& from, Index last,
                                      const DraftNode& to) const {
  std::vector<DraftNode> way{to};
  for (Index point = last; point != none; point = before_[point]) way.push_back(nodeAt(point));
  way.push_back(from);
  std::reverse(way.begin(), way.end());
  constexpr std::size_t farthest = 120;
  std::vector<DraftNode> bent{way.front()};
  for (std::size_t i = 0; i + 1 < way.size();) {
    std::size_t next = std::min(way.size() - 1, i + farthest);
    while (next > i + 1 && !sees(space_, way[i], way[next])) --next;
    bent.push_back(way[next]);
    i = next;
  }
  tighten(bent);
  std::vector<Point> bends;
  for (std::size_t i = 1; i + 1 < bent.size(); ++i) bends.push_back(bent[i].position);
  return bends;
}

// Moves bends toward the straight line between their neighbors, as far as everything stays in
// sight.
void Ways::tighten(std::vector<DraftNode>& way) const {
  constexpr int rounds = 3;
  for (int round = 0; round < rounds; ++round)
    for (std::size_t i = 1; i + 1 < way.size(); ++i) {
      const Point from = way[i - 1].position;
      const Point to = way[i + 1].position;
      const Point bend = way[i].position;
      const Point straight = from + (to - from) * package::nearestFraction(from, to, bend);
      for (const double share : {0.9, 0.7, 0.5, 0.3, 0.15}) {
        way[i].position = bend + (straight - bend) * share;
        if (sees(space_, way[i - 1], way[i]) && sees(space_, way[i], way[i + 1])) break;
        way[i].position = bend;
      }
    }
}

std::optional<std::vector<Point>> Ways::between(const DraftNode& from, const DraftNode& to,
                                                double longest) {
  const std::vector<Start> ends = startsFor(to);
  if (ends.empty()) return {};
  const auto goal = search(from, longest, [&](Index point) {
    return std::any_of(ends.begin(), ends.end(),
                       [&](const Start& end) { return end.point == point; });
  });
  if (!goal) return {};
  return straightened(from, *goal, to);
}

std::optional<Ways::Arrival> Ways::nearest(
    const DraftNode& from,
    const std::function<std::optional<DraftNode>(const DraftNode& point)>& arrive) {
  std::optional<DraftNode> end;
  const auto goal = search(from, unknown, [&](Index point) {
    end = arrive(nodeAt(point));
    return end.has_value();
  });
  if (!goal) return {};
  return Arrival{*end, straightened(from, *goal, *end)};
}

}  // namespace orivanta::importer
