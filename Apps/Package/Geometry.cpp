#include "Apps/Package/Geometry.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace orivanta::package {

double signedArea(const Outline& outline) {
  double twice = 0.0;
  for (std::size_t i = 0; i < outline.size(); ++i)
    twice += cross(outline[i], outline[i + 1 < outline.size() ? i + 1 : 0]);
  return twice / 2.0;
}

bool contains(const Outline& outline, Point point) {
  bool inside = false;
  for (std::size_t i = 0; i < outline.size(); ++i) {
    const Point a = outline[i];
    const Point b = outline[i + 1 < outline.size() ? i + 1 : 0];
    if ((a.y > point.y) == (b.y > point.y)) continue;
    if (point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y)) inside = !inside;
  }
  return inside;
}

double distanceToBorder(const Outline& outline, Point point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (std::size_t i = 0; i < outline.size(); ++i)
    nearest = std::min(
        nearest, distanceToSegment(outline[i], outline[i + 1 < outline.size() ? i + 1 : 0], point));
  return nearest;
}

Outline rectangle(double left, double bottom, double right, double top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

Outline circle(Point middle, double radius, int corners) {
  Outline outline;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2.0 * std::numbers::pi * i / corners;
    outline.push_back(middle + Point{radius * std::cos(angle), radius * std::sin(angle)});
  }
  return outline;
}

Outline grown(const Outline& outline, double margin) {
  Outline moved;
  const std::size_t count = outline.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point before = outline[i] - outline[(i + count - 1) % count];
    const Point after = outline[(i + 1) % count] - outline[i];
    const Point first = Point{before.y, -before.x} * (1.0 / length(before));
    const Point second = Point{after.y, -after.x} * (1.0 / length(after));
    const Point both = first + second;
    moved.push_back(outline[i] + both * (2.0 * margin / std::max(dot(both, both), 0.5)));
  }
  return moved;
}

}  // namespace orivanta::package
