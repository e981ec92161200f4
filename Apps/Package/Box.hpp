// A rectangle around points, with sides along the axes.
#pragma once

#include <algorithm>

#include "Apps/Package/Geometry.hpp"

namespace orivanta::package {

struct Box {
  Point least = {1e300, 1e300};
  Point most = {-1e300, -1e300};

  bool isEmpty() const { return least.x > most.x; }

  void add(Point point) {
    least = {std::min(least.x, point.x), std::min(least.y, point.y)};
    most = {std::max(most.x, point.x), std::max(most.y, point.y)};
  }
  void add(const Outline& outline) {
    for (const Point point : outline) add(point);
  }

  /// Both are 0 if the box is empty.
  Point size() const { return isEmpty() ? Point() : most - least; }
  double longestSide() const { return std::max(size().x, size().y); }
};

}  // namespace orivanta::package
