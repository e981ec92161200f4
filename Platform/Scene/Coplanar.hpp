// Tests whether triangles overlap in the same plane.
#pragma once

#include <array>
#include <glm/vec3.hpp>

#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

struct SpaceTriangle {
  explicit SpaceTriangle(const std::array<graphics::Vector3, 3>& from);

  std::array<glm::dvec3, 3> corners;
  glm::dvec3 normal;  ///< of length 1; NaN for a triangle without area
};

/// Rounding tolerances, in units of the triangles.
struct Rounding {
  double offPlane;  ///< distance of points in the same plane
  double overlap;   ///< overlap of adjacent triangles
};

/// Whether two triangles lie in one plane and overlap in an area.
bool coverEachOther(const SpaceTriangle& a, const SpaceTriangle& b, const Rounding& rounding);

}  // namespace orivanta::scene
