#include "Platform/Scene/Coplanar.hpp"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>

namespace orivanta::scene {

namespace {

bool liesInPlaneOf(const SpaceTriangle& triangle, const SpaceTriangle& plane, double tolerance) {
  return std::all_of(
      triangle.corners.begin(), triangle.corners.end(), [&](const glm::dvec3& corner) {
        return std::abs(glm::dot(corner - plane.corners[0], plane.normal)) <= tolerance;
      });
}

// Whether `other`, which lies in the triangle's plane, is completely outside of one of its sides.
bool liesBeside(const SpaceTriangle& other, const SpaceTriangle& triangle, double tolerance) {
  for (std::size_t side = 0; side < 3; ++side) {
    const glm::dvec3& from = triangle.corners[side];
    const glm::dvec3 outward =
        glm::normalize(glm::cross(triangle.corners[(side + 1) % 3] - from, triangle.normal));
    if (std::all_of(other.corners.begin(), other.corners.end(), [&](const glm::dvec3& corner) {
          return glm::dot(corner - from, outward) >= -tolerance;
        }))
      return true;
  }
  return false;
}

}  // namespace

SpaceTriangle::SpaceTriangle(const std::array<graphics::Vector3, 3>& from)
    : corners{glm::dvec3(from[0]), glm::dvec3(from[1]), glm::dvec3(from[2])},
      normal(glm::normalize(glm::cross(corners[1] - corners[0], corners[2] - corners[0]))) {}

// The larger triangle determines the plane more precisely.
bool coverEachOther(const SpaceTriangle& a, const SpaceTriangle& b, const Rounding& rounding) {
  return (liesInPlaneOf(a, b, rounding.offPlane) || liesInPlaneOf(b, a, rounding.offPlane)) &&
         !liesBeside(a, b, rounding.overlap) && !liesBeside(b, a, rounding.overlap);
}

}  // namespace orivanta::scene
