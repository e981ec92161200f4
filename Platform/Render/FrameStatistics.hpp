// What a frame cost.
#pragma once

#include <cstdint>

namespace orivanta::render {

/// Counted over one frame.
struct FrameStatistics {
  int drawCalls = 0;
  int triangles = 0;
  int shadowMapsDrawn = 0;
  int shadowMapSide = 0;           ///< texels of the last shadow map drawn; 0 when none was
  std::int64_t bytesUploaded = 0;  ///< vertices, indices and textures
};

}  // namespace orivanta::render
