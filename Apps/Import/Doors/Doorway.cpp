#include "Apps/Import/Doors/Doorway.hpp"

#include <algorithm>
#include <limits>

#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

Point wallDirection(const Door& door, const std::vector<const Area*>& areas) {
  const auto normal = [](Point along) {
    const double length = package::length(along);
    return length > 0.0 ? along * (1.0 / length) : Point{1.0, 0.0};
  };
  if (door.line.size() >= 2 && package::distance(door.line.front(), door.line.back()) > 0.05)
    return normal(door.line.back() - door.line.front());
  double nearest = std::numeric_limits<double>::max();
  Point along{1.0, 0.0};
  for (const Area* area : areas)
    for (const Segment& border : bordersOf(area->shape)) {
      // Short borders, such as those of a door frame, do not give the direction.
      const double length = package::distance(border.a, border.b);
      const double far = package::distanceToSegment(border.a, border.b, door.position) +
                         (length < 0.4 ? 0.3 : 0.0);
      if (far >= nearest) continue;
      nearest = far;
      along = border.b - border.a;
    }
  return normal(along);
}

Polygon doorway(const Door& door, Point wallDirection, double depth) {
  double width = door.width.value_or(1.0);
  Point middle = door.position;
  if (door.line.size() >= 2) {
    width = package::distance(door.line.front(), door.line.back());
    middle = (door.line.front() + door.line.back()) * 0.5;
  }
  const Point along = wallDirection * (std::clamp(width, 0.8, 60.0) / 2.0);
  const Point across = Point{-wallDirection.y, wallDirection.x} * depth;
  return {{middle - along - across, middle + along - across, middle + along + across,
           middle - along + across},
          {}};
}

}  // namespace orivanta::importer
