// Triangles that lie over one another in one plane.
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

/// What counts as rounding, in units of the triangles.
struct Rounding {
  double offPlane;  ///< the distance of points that lie in one plane
  double overlap;   ///< the width of an overlap of triangles that lie side by side
};

/// Whether two triangles lie in one plane and share an area.
bool coverEachOther(const SpaceTriangle& a, const SpaceTriangle& b, const Rounding& rounding);

}  // namespace orivanta::scene
