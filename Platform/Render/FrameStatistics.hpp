// Statistics of a frame.
// Public header.
#pragma once

#include <cstdint>

namespace orivanta::render {

/// Counters for one frame.
struct FrameStatistics {
  int drawCalls = 0;        ///< OpenGL draw calls
  int triangles = 0;        ///< sent to OpenGL
  int shadowMapsDrawn = 0;  ///< shadow maps that had to be redrawn
  int shadowMapSide = 0;    ///< side of the last shadow map drawn, in texels; 0 if none was drawn
  std::int64_t bytesUploaded = 0;  ///< vertices, indices and textures
};

}  // namespace orivanta::render
