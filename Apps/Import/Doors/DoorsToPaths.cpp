#include "Apps/Import/Doors/DoorsToPaths.hpp"

#include <algorithm>
#include <cmath>

#include "Apps/Import/Geometry/OpenShape.hpp"

namespace orivanta::importer {

namespace {

constexpr double farthestPath = 8.0;  // meters from a wall
constexpr double atDoor = 1.0;        // nearer spaces need no path
constexpr double intoSpace = 1.0;
constexpr double widthOfDoor = 1.0;
constexpr double leastWidth = 0.6;

bool blocks(const Area& area) {
  return area.kind != AreaKind::unknown && area.kind != AreaKind::walkway;
}

}  // namespace

bool hasPaths(const Building& building, double level) {
  return std::any_of(building.lines.begin(), building.lines.end(), [&](const Line& line) {
    return line.kind == LineKind::path && line.levels == std::vector<double>{level};
  });
}

// Whether nothing lies between that people do not walk on.
bool DoorsToPaths::isFree(const Area& room, Point from, Point to) const {
  constexpr double step = 0.4;
  const double length = package::distance(from, to);
  const auto count = static_cast<int>(std::ceil(length / step));
  for (int i = 1; i < count; ++i) {
    const Area* area = contents_.smallestAt(from + (to - from) * (static_cast<double>(i) / count));
    if (area != nullptr && blocks(*area) && (area == &room || !isAround(*area, room))) return false;
  }
  return true;
}

std::optional<DoorsToPaths::Found> DoorsToPaths::from(const Area& room, const Shape& shape) const {
  std::optional<Found> best;
  double least = farthestPath;
  for (const auto& [a, b] : straightWalls(shape)) {
    const double length = package::distance(a, b);
    if (length < leastWidth) continue;
    const Point along = (b - a) * (1.0 / length);
    const Point outward{along.y, -along.x};
    const double half = std::min(widthOfDoor, length) / 2.0;
    const double free = length - 2.0 * half;
    const int count = 2 * std::clamp(static_cast<int>(free / 2.0), 1, 20);  // with the middle
    for (int i = 0; i <= count; ++i) {
      const double at = half + free * i / count;
      const Point middle = a + along * at;
      const auto wall = space_.nearestWall(middle, least);
      if (!wall || wall->distance <= 0.0) continue;
      // Doors in the middle of walls look better.
      const double cost = wall->distance + 0.05 * std::abs(at - length / 2.0);
      constexpr double straightAhead = 0.7;
      if (cost >= least ||
          package::dot(wall->position - middle, outward) < straightAhead * wall->distance ||
          !isFree(room, middle, wall->position))
        continue;
      least = cost;
      best = Found{{middle - along * half, middle + along * half}, wall->position};
    }
  }
  return best;
}

std::optional<Point> DoorsToPaths::from(const Area& room, const Door& door) const {
  if (space_.contains(door.position)) return std::nullopt;
  const auto wall = space_.nearestWall(door.position, farthestPath);
  if (!wall || wall->distance <= atDoor || !isFree(room, door.position, wall->position))
    return std::nullopt;
  return wall->position;
}

Line pathFrom(const Door& door, Point target) {
  Line path;
  path.id = path.source = door.id + "/path";
  path.levels = {door.level};
  const double length = package::distance(door.position, target);
  path.points = {door.position,
                 target + (target - door.position) * (intoSpace / std::max(length, 1e-9))};
  path.access = door.access;
  return path;
}

}  // namespace orivanta::importer
