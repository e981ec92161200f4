// Counts the pixels of a color in an image.
#pragma once

#include <cmath>
#include <cstddef>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::test {

/// The number of pixels with approximately this color.
inline int countPixels(const graphics::Image& image, const graphics::Color& color) {
  const auto pixels = image.pixels();
  int count = 0;
  for (std::size_t i = 0; i < pixels.size(); i += 4) {
    const auto differs = [&](std::size_t part, float wanted) {
      return std::abs(pixels[i + part] - wanted * 255) > 4;
    };
    if (!differs(0, color.red) && !differs(1, color.green) && !differs(2, color.blue)) ++count;
  }
  return count;
}

}  // namespace orivanta::test
