// Turns points of the ground plane.
#pragma once

#include <cmath>

#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// The point turned counterclockwise about the origin; `angle` in radians.
inline graphics::Point turned(graphics::Point point, double angle) {
  const double sine = std::sin(angle);
  const double cosine = std::cos(angle);
  return {point.x * cosine - point.y * sine, point.x * sine + point.y * cosine};
}

}  // namespace orivanta
