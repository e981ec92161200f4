#include "Platform/Render/DepthLayer.hpp"

#include "Platform/Render/Gl.hpp"

namespace orivanta::render {

// The constant offset covers rounding of depth values in a plane. The offset by slope covers the
// rounding of corners to fractions of a pixel.
void setDepthLayer(int layer) {
  constexpr float shareOfSlope = 1.0F / 64;
  constexpr float leastSteps = 8;
  if (layer == 0) {
    glDisable(GL_POLYGON_OFFSET_FILL);
    return;
  }
  const auto height = static_cast<float>(layer);
  glEnable(GL_POLYGON_OFFSET_FILL);
  glPolygonOffset(-shareOfSlope * height, -leastSteps * height);
}

}  // namespace orivanta::render
