// Points and outlines on a floor, in meters. x points east, y north, and the origin is the center
// of the building.
#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

namespace orivanta::package {

struct Point {
  double x = 0.0;
  double y = 0.0;

  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
  friend Point operator*(Point a, double factor) { return {a.x * factor, a.y * factor}; }
};

/// The corners of a simple polygon, counterclockwise, without repeating the first.
using Outline = std::vector<Point>;

inline double dot(Point a, Point b) { return a.x * b.x + a.y * b.y; }
/// The z component of the cross product: positive if b is to the left of a.
inline double cross(Point a, Point b) { return a.x * b.y - a.y * b.x; }
inline double length(Point a) { return std::sqrt(dot(a, a)); }
inline double distance(Point a, Point b) { return length(a - b); }

/// Positive for a counterclockwise outline.
double signedArea(const Outline& outline);

/// Whether the point lies inside. The result is unspecified for points on the border.
bool contains(const Outline& outline, Point point);

/// The point of a segment that is nearest to another point, as a fraction of the way from a to b.
inline double nearestFraction(Point a, Point b, Point point) {
  const double squared = dot(b - a, b - a);
  return squared == 0.0 ? 0.0 : std::clamp(dot(point - a, b - a) / squared, 0.0, 1.0);
}
inline double distanceToSegment(Point a, Point b, Point point) {
  return distance(a + (b - a) * nearestFraction(a, b, point), point);
}

/// The distance to the nearest point of the border.
double distanceToBorder(const Outline& outline, Point point);

/// Whether two segments cross at a point inside both.
inline bool cross(Point a, Point b, Point c, Point d) {
  const auto apart = [](Point from, Point to, Point left, Point right) {
    return cross(to - from, left - from) * cross(to - from, right - from) < 0.0;
  };
  return apart(a, b, c, d) && apart(c, d, a, b);
}

Outline rectangle(double left, double bottom, double right, double top);
Outline circle(Point middle, double radius, int corners = 24);

/// The outline with all edges moved outward by a margin (inward if it is negative).
Outline grown(const Outline& outline, double margin);

}  // namespace orivanta::package
