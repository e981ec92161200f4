// Rigid transforms, as nodes have them.
#pragma once

#include <glm/ext/matrix_transform.hpp>
#include <glm/mat3x3.hpp>
#include <glm/matrix.hpp>

#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

/// Rotates by the Euler angles (radians) about x, then y, then z, and then translates.
inline graphics::Matrix4 rigidTransform(const graphics::Vector3& position,
                                        const graphics::Vector3& eulerAngles) {
  graphics::Matrix4 result = glm::translate(graphics::Matrix4(1.0F), position);
  if (eulerAngles == graphics::Vector3(0.0F)) return result;
  result = glm::rotate(result, eulerAngles.z, graphics::Vector3(0, 0, 1));
  result = glm::rotate(result, eulerAngles.y, graphics::Vector3(0, 1, 0));
  return glm::rotate(result, eulerAngles.x, graphics::Vector3(1, 0, 0));
}

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
