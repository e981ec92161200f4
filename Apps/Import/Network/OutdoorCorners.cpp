#include "Apps/Import/Network/OutdoorCorners.hpp"

#include <algorithm>
#include <functional>
#include <limits>
#include <queue>
#include <utility>

#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

namespace {

constexpr double besideCorner = 1.2;  // meters
constexpr double leastBeside = 1.0;
constexpr double farthestCorner = 80.0;
constexpr std::size_t mostCorners = 4'000;

// The points beside the corners that point outward.
void addCorners(const Outline& outer, std::vector<Point>& corners) {
  const std::size_t count = outer.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point corner = outer[i];
    const Point in = corner - outer[(i + count - 1) % count];
    const Point out = corner - outer[(i + 1) % count];
    const double lengths = package::length(in) * package::length(out);
    // Outlines are counterclockwise.
    if (!(lengths > 0.0) || package::cross(out, in) <= 0.0) continue;
    const Point outward = in * (1.0 / package::length(in)) + out * (1.0 / package::length(out));
    constexpr double leastTurn = 0.2;  // of nearly straight walls
    if (package::length(outward) < leastTurn) continue;
    corners.push_back(corner + outward * (besideCorner / package::length(outward)));
  }
}

}  // namespace

bool isFreeOutdoors(const SegmentGrid& walls, Point from, Point to) {
  const double length = package::distance(from, to);
  constexpr double atEnd = 1.0;  // exits lie at the borders of areas
  if (length <= 2.0 * atEnd) return true;
  const Point part = (to - from) * (atEnd / length);
  const Segment line{from + part, to - part};
  return !walls.anyAlong(line, [&](std::size_t i) {
    const Segment& wall = walls.segments()[i];
    return package::cross(line.a, line.b, wall.a, wall.b);
  });
}

OutdoorCorners::OutdoorCorners(const Shape& ground, const SegmentGrid& walls) : walls_(walls) {
  const Shape built = united(ground);
  for (const Polygon& polygon : built) addCorners(polygon.outer, corners_);
  const Space inside(built);
  std::erase_if(corners_, [&](Point corner) {
    return inside.contains(corner) || inside.clearance(corner, besideCorner) < leastBeside;
  });
  if (corners_.size() > mostCorners) corners_.clear();
}

bool OutdoorCorners::isFree(Point from, Point to) {
  if (testsLeft_ == 0) return false;
  --testsLeft_;
  return isFreeOutdoors(walls_, from, to);
}

// The points are the starts, then the corners, then the goals.
std::optional<OutdoorCorners::Way> OutdoorCorners::shortest(const std::vector<Point>& starts,
                                                            const std::vector<Point>& goals,
                                                            double longest) {
  std::vector<Point> points = starts;
  points.insert(points.end(), corners_.begin(), corners_.end());
  const std::size_t firstGoal = points.size();
  points.insert(points.end(), goals.begin(), goals.end());
  std::vector<double> costs(points.size(), std::numeric_limits<double>::infinity());
  std::vector<std::size_t> before(points.size(), points.size());
  std::vector<bool> settled(points.size());
  using Entry = std::pair<double, std::size_t>;
  std::priority_queue<Entry, std::vector<Entry>, std::greater<>> open;
  for (std::size_t i = 0; i < starts.size(); ++i) open.emplace(costs[i] = 0.0, i);
  while (!open.empty()) {
    const auto [cost, at] = open.top();
    open.pop();
    if (settled[at]) continue;
    settled[at] = true;
    if (at >= firstGoal) {
      Way way{at, at - firstGoal, {}, cost};
      for (way.from = before[at]; way.from >= starts.size(); way.from = before[way.from])
        way.bends.push_back(points[way.from]);
      std::reverse(way.bends.begin(), way.bends.end());
      return way;
    }
    for (std::size_t next = starts.size(); next < points.size(); ++next) {
      const double step = package::distance(points[at], points[next]);
      if (settled[next] || step > farthestCorner || cost + step > longest ||
          cost + step >= costs[next] || !isFree(points[at], points[next]))
        continue;
      costs[next] = cost + step;
      before[next] = at;
      open.emplace(costs[next], next);
    }
  }
  return std::nullopt;
}

}  // namespace orivanta::importer
