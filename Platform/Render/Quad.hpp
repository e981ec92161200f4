// A rectangle of a 2D picture, ready to be drawn.
#pragma once

#include <array>
#include <memory>
#include <optional>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::render {

/// As it goes to the GPU, in pixels from the upper left corner with y downwards.
struct QuadVertex {
  std::array<float, 2> centre;
  std::array<float, 2> halfSize;
  std::array<float, 2> turn{1, 0};  ///< cosine and sine of the clockwise turn about the center
  float cornerRadius = 0;
  std::array<float, 4> color{1, 1, 1, 1};  ///< sRGB values multiplied by the alpha
};

/// Filled with one color, with an image or with the picture of a 3D scene, both multiplied by the
/// color.
struct Quad {
  QuadVertex vertex;
  std::shared_ptr<const graphics::Image> image;
  std::optional<std::size_t> scene;  ///< among the frame's scenes
};

}  // namespace orivanta::render
