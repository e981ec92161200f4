#include "Platform/Scene/Camera.hpp"

#include <cmath>
#include <glm/trigonometric.hpp>

namespace orivanta::scene {

graphics::Matrix4 Camera::projection(graphics::Size view) const {
  const bool isEmpty = !(view.width > 0 && view.height > 0);
  const double aspect = isEmpty ? 1.0 : view.width / view.height;
  const auto scale = [](double angle) { return 1.0 / std::tan(glm::radians(angle) / 2); };
  const double xScale = aspect < 1 ? scale(xFov) : scale(yFov) / aspect;
  const double yScale = aspect < 1 ? xScale * aspect : scale(yFov);
  const double depth = zFar - zNear;

  graphics::Matrix4 matrix(0.0F);
  matrix[0][0] = static_cast<float>(xScale);
  matrix[1][1] = static_cast<float>(yScale);
  matrix[2][2] = static_cast<float>(-(zFar + zNear) / depth);
  matrix[2][3] = -1.0F;
  matrix[3][2] = static_cast<float>(-2 * zFar * zNear / depth);
  return matrix;
}

}  // namespace orivanta::scene
