#include "Apps/Import/Geometry/Space.hpp"

#include <algorithm>
#include <array>
#include <cmath>

namespace orivanta::importer {

namespace {

void appendBorders(const Outline& outline, std::vector<Segment>& borders) {
  for (std::size_t i = 0; i < outline.size(); ++i)
    borders.push_back({outline[i], outline[(i + 1) % outline.size()]});
}

Point turned(Point direction, double angle) {
  return {direction.x * std::cos(angle) - direction.y * std::sin(angle),
          direction.x * std::sin(angle) + direction.y * std::cos(angle)};
}

}  // namespace

std::vector<Segment> bordersOf(const Shape& shape) {
  std::vector<Segment> borders;
  for (const Polygon& polygon : shape) {
    appendBorders(polygon.outer, borders);
    for (const Outline& hole : polygon.holes) appendBorders(hole, borders);
  }
  return borders;
}

Space::Space(const Shape& shape) : walls_(bordersOf(shape), greatestClearance) {
  walls_.findEnclosed();
}

bool Space::isFree(Point from, Point to, double clearance) const {
  const Segment line{from, to};
  const double left = std::min(from.x, to.x) - clearance;
  const double right = std::max(from.x, to.x) + clearance;
  const double bottom = std::min(from.y, to.y) - clearance;
  const double top = std::max(from.y, to.y) + clearance;
  return !walls_.anyAlong(line, [&](std::size_t i) {
    const Segment& wall = walls_.segments()[i];
    if (std::max(wall.a.x, wall.b.x) < left || std::min(wall.a.x, wall.b.x) > right ||
        std::max(wall.a.y, wall.b.y) < bottom || std::min(wall.a.y, wall.b.y) > top)
      return false;
    return clearance > 0.0 ? distanceOf(line, wall) < clearance
                           : package::cross(from, to, wall.a, wall.b);
  });
}

double Space::clearance(Point point, double atMost) const {
  const std::size_t wall = walls_.nearest(point, atMost);
  return wall == SegmentGrid::none ? atMost : wallPoint(wall, point).distance;
}

WallPoint Space::wallPoint(std::size_t wall, Point point) const {
  const auto& [a, b] = walls_.segments()[wall];
  const Point along = b - a;
  const Point position = a + along * package::nearestFraction(a, b, point);
  const double length = std::max(package::length(along), 1e-9);
  return {position, Point{-along.y / length, along.x / length}, package::distance(position, point)};
}

std::optional<WallPoint> Space::nearestWall(Point point, double within) const {
  const std::size_t wall = walls_.nearest(point, within);
  if (wall == SegmentGrid::none) return {};
  return wallPoint(wall, point);
}

std::optional<Point> Space::foot(Point point, double within, double clearance) const {
  const auto fits = [&](Point candidate) {
    return contains(candidate) && this->clearance(candidate, clearance) >= clearance;
  };
  if (fits(point)) return point;
  std::vector<WallPoint> near;
  walls_.eachNear(point, within, [&](std::size_t i) {
    const WallPoint wall = wallPoint(i, point);
    if (wall.distance <= within) near.push_back(wall);
  });
  std::sort(near.begin(), near.end(), [](const WallPoint& a, const WallPoint& b) {
    if (a.distance != b.distance) return a.distance < b.distance;
    return a.inward.x != b.inward.x ? a.inward.x < b.inward.x : a.inward.y < b.inward.y;
  });
  constexpr std::size_t mostWalls = 12;
  if (near.size() > mostWalls) near.resize(mostWalls);
  constexpr std::array angles{0.0, 0.45, -0.45, 0.9, -0.9};
  for (const double reach : {1.2 * clearance, 2.0 * clearance, 4.0 * clearance})
    for (const WallPoint& wall : near)
      for (const double angle : angles) {
        const Point candidate = wall.position + turned(wall.inward, angle) * reach;
        if (fits(candidate)) return candidate;
      }
  return {};
}

}  // namespace orivanta::importer
