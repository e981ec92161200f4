#include <algorithm>
#include <cmath>
#include <limits>

#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

package::Box boxOf(const Shape& shape) {
  package::Box box;
  for (const Polygon& polygon : shape) box.add(polygon.outer);
  return box;
}

double areaOf(const Polygon& polygon) {
  double area = std::abs(package::signedArea(polygon.outer));
  for (const Outline& hole : polygon.holes) area -= std::abs(package::signedArea(hole));
  return area;
}

double areaOf(const Shape& shape) {
  double area = 0.0;
  for (const Polygon& polygon : shape) area += areaOf(polygon);
  return area;
}

bool contains(const Shape& shape, Point point) {
  return std::any_of(shape.begin(), shape.end(), [&](const Polygon& polygon) {
    return package::contains(polygon.outer, point) &&
           std::none_of(polygon.holes.begin(), polygon.holes.end(),
                        [&](const Outline& hole) { return package::contains(hole, point); });
  });
}

double distanceToBorders(const Polygon& polygon, Point point) {
  double nearest = package::distanceToBorder(polygon.outer, point);
  for (const Outline& hole : polygon.holes)
    nearest = std::min(nearest, package::distanceToBorder(hole, point));
  return nearest;
}

double distanceTo(const Shape& shape, Point point) {
  if (contains(shape, point)) return 0.0;
  double nearest = std::numeric_limits<double>::infinity();
  for (const Polygon& polygon : shape)
    nearest = std::min(nearest, distanceToBorders(polygon, point));
  return nearest;
}

}  // namespace orivanta::importer
