#include "Apps/Import/Geometry/InnerPoint.hpp"

#include <algorithm>

namespace orivanta::importer {

Point innerPoint(const Shape& shape) {
  const Polygon& polygon =
      *std::max_element(shape.begin(), shape.end(),
                        [](const Polygon& a, const Polygon& b) { return areaOf(a) < areaOf(b); });
  Point low = polygon.outer.front();
  Point high = low;
  for (const Point point : polygon.outer) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
  }
  const double precision = std::max(0.02, std::min(high.x - low.x, high.y - low.y) * 0.02);
  return centerOfLargestCircle(polygon, precision).value_or((low + high) * 0.5);
}

}  // namespace orivanta::importer
