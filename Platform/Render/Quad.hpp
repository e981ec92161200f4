// Rectangles of a 2D frame, ready to draw.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>

#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Sheet.hpp"

namespace orivanta::render {

/// The layout in GPU memory; pixels from the upper left corner, with y pointing down.
struct QuadVertex {
  std::array<float, 2> center;
  std::array<float, 2> halfSize;
  std::array<float, 2> turn{1, 0};  ///< cosine and sine of the clockwise rotation about the center
  float cornerRadius = 0;
  std::array<float, 4> color{1, 1, 1, 1};  ///< sRGB values, premultiplied by the alpha
  std::array<float, 4> texels{};           ///< left and upper edge, width and height in the sheet
};

/// Left, upper, right and lower edge of a part of the frame in pixels, with y pointing down.
struct PixelBox {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  friend bool operator==(const PixelBox&, const PixelBox&) = default;
};

/// Filled with a color, an image, an image of a sheet or a rendered 3D scene; all but the first are
/// multiplied by the color.
struct Quad {
  QuadVertex vertex;
  std::shared_ptr<const graphics::Image> image;
  std::optional<std::size_t> scene = std::nullopt;  ///< index in the frame's scenes
  std::shared_ptr<graphics::Sheet> sheet = nullptr;
  std::optional<PixelBox> clip = std::nullopt;  ///< outside of it, nothing is drawn
};

}  // namespace orivanta::render
