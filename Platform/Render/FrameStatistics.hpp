// What a frame cost.
#pragma once

#include <cstdint>

namespace orivanta::render {

/// Counted over one frame.
struct FrameStatistics {
  int drawCalls = 0;
  int triangles = 0;
  int shadowMapsDrawn = 0;
  std::int64_t bytesUploaded = 0;  ///< vertices, indices and textures
};

}  // namespace orivanta::render
