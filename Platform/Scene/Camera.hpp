// A perspective camera, looking along the negative z axis of its node with y upwards.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

/// A plain value that its node owns by handle; change it under a `graphics::Transaction` while a
/// frame may be drawn. The angles are degrees, the planes scene units.
class ORIVANTA_API Camera {
 public:
  double xFov = 60.0;   ///< field of view from left to right, degrees
  double yFov = 60.0;   ///< field of view from bottom to top, degrees
  double zNear = 1.0;   ///< distance of the near plane, scene units
  double zFar = 100.0;  ///< distance of the far plane, scene units

  /// From camera space to clip space (x, y and z of -w to w, as OpenGL has it). The field of view
  /// belongs to the shorter side of the view, `xFov` when that is its width, so the picture is
  /// never stretched. An empty view counts as a square.
  graphics::Matrix4 projection(graphics::Size view) const;
};

}  // namespace orivanta::scene
