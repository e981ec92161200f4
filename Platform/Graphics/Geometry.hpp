// Points, sizes and rectangles of the plane.
#pragma once

#include <algorithm>

namespace orivanta::graphics {

/// In points of whoever names it; which way the y axis runs is the frame's own matter.
struct Point {
  double x = 0.0;
  double y = 0.0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  double width = 0.0;
  double height = 0.0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// `origin` is the corner with the smallest coordinates; sizes are not negative.
struct Rect {
  Point origin;
  Size size;

  double minX() const { return origin.x; }
  double minY() const { return origin.y; }
  double midX() const { return origin.x + size.width / 2; }
  double midY() const { return origin.y + size.height / 2; }
  double maxX() const { return origin.x + size.width; }
  double maxY() const { return origin.y + size.height; }

  /// With the smaller edges, without the larger ones.
  bool contains(Point point) const {
    return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
  }

  /// Whether the two share an area: rectangles that share only an edge do not intersect.
  bool intersects(const Rect& other) const {
    return std::min(maxX(), other.maxX()) > std::max(minX(), other.minX()) &&
           std::min(maxY(), other.maxY()) > std::max(minY(), other.minY());
  }

  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace orivanta::graphics
