// Transforms that only turn and move, as those of nodes do.
#pragma once

#include <glm/mat3x3.hpp>
#include <glm/matrix.hpp>

#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

inline graphics::Matrix4 inverseOfRigid(const graphics::Matrix4& transform) {
  const glm::mat3 turnedBack = glm::transpose(glm::mat3(transform));
  graphics::Matrix4 inverse(turnedBack);
  inverse[3] = graphics::Vector4(-(turnedBack * graphics::Vector3(transform[3])), 1.0F);
  return inverse;
}

inline graphics::Vector3 transformPoint(const graphics::Matrix4& transform,
                                        const graphics::Vector3& point) {
  return graphics::Vector3(transform * graphics::Vector4(point, 1.0F));
}

}  // namespace orivanta::scene
