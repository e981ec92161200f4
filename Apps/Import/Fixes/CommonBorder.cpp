#include "Apps/Import/Fixes/CommonBorder.hpp"

#include <algorithm>
#include <cmath>
#include <vector>

#include "Apps/Import/Geometry/SegmentGrid.hpp"

namespace orivanta::importer {

namespace {

constexpr double close = 0.4;
constexpr double longest = 1e5;  // meters; what is longer is damaged
constexpr double step = 0.2;
constexpr double mostSteps = 10'000.0;

std::vector<Segment> borderOf(const Area& area) {
  std::vector<Segment> border;
  const auto usable = [](Point point) { return std::hypot(point.x, point.y) < longest; };
  for (const Polygon& polygon : area.shape)
    for (std::size_t i = 0; i < polygon.outer.size(); ++i) {
      const Segment side = {polygon.outer[i], polygon.outer[(i + 1) % polygon.outer.size()]};
      if (usable(side.a) && usable(side.b)) border.push_back(side);
    }
  return border;
}

}  // namespace

std::optional<Point> commonBorder(const Area& area, const Area& other) {
  const std::vector<Segment> border = borderOf(area);
  const SegmentGrid grid(borderOf(other), close);
  double length = 0.0;
  for (const Segment& side : border) length += package::distance(side.a, side.b);
  const double each = std::max(step, length / mostSteps);
  std::vector<Point> shared;
  Point sum;
  for (const Segment& side : border) {
    const double count = std::ceil(std::max(package::distance(side.a, side.b) / each, 1.0));
    for (double k = 0.5; k < count; k += 1.0) {
      const Point point = side.a + (side.b - side.a) * (k / count);
      if (grid.nearest(point, close) == SegmentGrid::none) continue;
      shared.push_back(point);
      sum = sum + point;
    }
  }
  if (shared.empty()) return std::nullopt;
  const Point mean = sum * (1.0 / static_cast<double>(shared.size()));
  return *std::min_element(shared.begin(), shared.end(), [&](Point a, Point b) {
    return package::distance(a, mean) < package::distance(b, mean);
  });
}

}  // namespace orivanta::importer
