// Points, sizes and rectangles in 2D.
// Public header.
#pragma once

#include <algorithm>

namespace orivanta::graphics {

/// A position in points. Its user defines the origin and the direction of the y axis.
struct Point {
  double x = 0.0;  ///< to the right
  double y = 0.0;  ///< up or down
  friend bool operator==(const Point&, const Point&) = default;
};

/// A size in points.
struct Size {
  double width = 0.0;   ///< points
  double height = 0.0;  ///< points
  friend bool operator==(const Size&, const Size&) = default;
};

/// An axis-aligned rectangle.
struct Rect {
  Point origin;  ///< the corner with the smallest coordinates
  Size size;     ///< not negative

  double minX() const { return origin.x; }                    ///< smallest x
  double minY() const { return origin.y; }                    ///< smallest y
  double midX() const { return origin.x + size.width / 2; }   ///< x of the center
  double midY() const { return origin.y + size.height / 2; }  ///< y of the center
  double maxX() const { return origin.x + size.width; }       ///< largest x
  double maxY() const { return origin.y + size.height; }      ///< largest y

  /// Returns whether a point lies inside, or on one of the edges with the smallest coordinates.
  bool contains(Point point) const {
    return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
  }

  /// Returns whether the rectangles overlap. Rectangles that share only an edge do not intersect.
  bool intersects(const Rect& other) const {
    return std::min(maxX(), other.maxX()) > std::max(minX(), other.minX()) &&
           std::min(maxY(), other.maxY()) > std::max(minY(), other.minY());
  }

  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace orivanta::graphics
