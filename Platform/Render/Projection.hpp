// Properties of a perspective projection matrix.
#pragma once

#include "Platform/Graphics/Vector.hpp"

namespace orivanta::render {

inline float nearPlane(const graphics::Matrix4& projection) {
  return projection[3][2] / (projection[2][2] - 1);
}

inline float farPlane(const graphics::Matrix4& projection) {
  return projection[3][2] / (projection[2][2] + 1);
}

/// The scene units that a pixel covers at a distance, in a frame of `height` pixels.
inline float unitsPerPixel(float distance, const graphics::Matrix4& projection, int height) {
  return 2 * distance / (projection[1][1] * static_cast<float>(height));
}

}  // namespace orivanta::render
