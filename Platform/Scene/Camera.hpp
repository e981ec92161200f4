// A perspective camera that looks along the negative z axis of its node, with y upwards.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"

namespace orivanta::scene {

/// The properties of a camera. Change them under a `graphics::Transaction` if a frame may be drawn
/// concurrently.
class ORIVANTA_API Camera {
 public:
  double xFov = 60.0;   ///< horizontal field of view, degrees
  double yFov = 60.0;   ///< vertical field of view, degrees
  double zNear = 1.0;   ///< distance of the near plane, scene units
  double zFar = 100.0;  ///< distance of the far plane, scene units

  /// Returns the matrix from camera space to clip space (x, y and z from -w to w, as in OpenGL).
  /// The field of view applies to the shorter side of the view: `xFov` if that is the width,
  /// otherwise `yFov`. The result is therefore never distorted. An empty view is treated as a
  /// square.
  graphics::Matrix4 projection(graphics::Size view) const;

  friend bool operator==(const Camera&, const Camera&) = default;
};

}  // namespace orivanta::scene
