// Rectangles of a 2D frame, ready to draw.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::render {

/// The layout in GPU memory; pixels from the upper left corner, with y pointing down.
struct QuadVertex {
  std::array<float, 2> center;
  std::array<float, 2> halfSize;
  std::array<float, 2> turn{1, 0};  ///< cosine and sine of the clockwise rotation about the center
  float cornerRadius = 0;
  std::array<float, 4> color{1, 1, 1, 1};  ///< sRGB values, premultiplied by the alpha
};

/// Filled with a color, an image or a rendered 3D scene; the latter two are multiplied by the
/// color.
struct Quad {
  QuadVertex vertex;
  std::shared_ptr<const graphics::Image> image;
  std::optional<std::size_t> scene;  ///< index in the frame's scenes
};

}  // namespace orivanta::render
