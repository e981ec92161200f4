// Points of a floor in meters, and the directions between them.
#pragma once

#include <algorithm>
#include <cmath>

namespace orivanta::guidance {

/// A point of a floor, in meters. y is to the left of x.
struct PlanePoint {
  double x = 0.0;
  double y = 0.0;

  friend PlanePoint operator-(PlanePoint left, PlanePoint right) {
    return {left.x - right.x, left.y - right.y};
  }
  friend bool operator==(PlanePoint left, PlanePoint right) = default;
};

inline double length(PlanePoint vector) { return std::hypot(vector.x, vector.y); }

inline double dot(PlanePoint left, PlanePoint right) { return left.x * right.x + left.y * right.y; }

/// Returns a positive number if `right` points to the left of `left`.
inline double cross(PlanePoint left, PlanePoint right) {
  return left.x * right.y - left.y * right.x;
}

/// Returns the angle from one direction to another in degrees, left positive, from -180 to 180.
/// Returns 0 if one of them is zero.
inline double degreesBetween(PlanePoint from, PlanePoint to) {
  constexpr double degreesPerRadian = 57.29577951308232;
  return std::atan2(cross(from, to), dot(from, to)) * degreesPerRadian;
}

/// Returns where the point of a line segment next to a point is, from 0 (`begin`) to 1 (`end`).
inline double shareOnSegment(PlanePoint point, PlanePoint begin, PlanePoint end) {
  const PlanePoint segment = end - begin;
  const double square = dot(segment, segment);
  return square > 0.0 ? std::clamp(dot(point - begin, segment) / square, 0.0, 1.0) : 0.0;
}

/// Returns the distance of a point from a line segment.
inline double distanceToSegment(PlanePoint point, PlanePoint begin, PlanePoint end) {
  const PlanePoint segment = end - begin;
  const double share = shareOnSegment(point, begin, end);
  return length(point - PlanePoint{begin.x + share * segment.x, begin.y + share * segment.y});
}

}  // namespace orivanta::guidance
