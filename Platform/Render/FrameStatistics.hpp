// What a frame cost.
// Public header.
#pragma once

#include <cstdint>

namespace orivanta::render {

/// Counted over one frame.
struct FrameStatistics {
  int drawCalls = 0;               ///< calls of OpenGL that draw
  int triangles = 0;               ///< sent to OpenGL
  int shadowMapsDrawn = 0;         ///< those that had to be drawn again
  int shadowMapSide = 0;           ///< texels of the last shadow map drawn; 0 when none was
  std::int64_t bytesUploaded = 0;  ///< vertices, indices and textures
};

}  // namespace orivanta::render
