#include "Apps/Import/Geometry/InnerPoint.hpp"

#include <algorithm>

namespace orivanta::importer {

Point innerPoint(const Shape& shape) {
  const Polygon& polygon =
      *std::max_element(shape.begin(), shape.end(),
                        [](const Polygon& a, const Polygon& b) { return areaOf(a) < areaOf(b); });
  const package::Box box = boxOf({polygon});
  const double precision = std::max(0.02, std::min(box.size().x, box.size().y) * 0.02);
  return centerOfLargestCircle(polygon, precision).value_or((box.least + box.most) * 0.5);
}

}  // namespace orivanta::importer
