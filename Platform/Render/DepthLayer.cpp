#include "Platform/Render/DepthLayer.hpp"

#include <algorithm>

#include "Platform/Render/Gl.hpp"

namespace orivanta::render {

namespace {

// Four of the driver's fractions of a pixel. Few have less than 8 bits; software drivers of
// browsers have 4. All contexts of a process belong to one driver.
float shareOfSlope() {
  static const float share =
      std::clamp(4.0F / static_cast<float>(1 << std::min(gl::parameter(GL_SUBPIXEL_BITS), 16)),
                 1.0F / 64, 1.0F / 4);
  return share;
}

}  // namespace

void prepareDepthLayers() { shareOfSlope(); }

// The constant offset covers rounding of depth values in a plane. The offset by slope covers the
// rounding of corners to fractions of a pixel.
void setDepthLayer(int layer) {
  constexpr float leastSteps = 8;
  if (layer == 0) {
    glDisable(GL_POLYGON_OFFSET_FILL);
    return;
  }
  const auto height = static_cast<float>(layer);
  glEnable(GL_POLYGON_OFFSET_FILL);
  glPolygonOffset(-shareOfSlope() * height, -leastSteps * height);
}

}  // namespace orivanta::render
