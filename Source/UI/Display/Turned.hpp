// Rotates points of the ground plane.
// Private header.
#pragma once

#include <cmath>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// Returns the point rotated counterclockwise around the origin. `angle` is in radians.
inline graphics::Point turned(graphics::Point point, double angle) {
  const double sine = std::sin(angle);
  const double cosine = std::cos(angle);
  return {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine};
}

}  // namespace orivanta
