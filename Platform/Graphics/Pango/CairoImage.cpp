#include "Platform/Graphics/Pango/CairoImage.hpp"

#include <algorithm>
#include <cstring>

namespace orivanta::graphics {

std::uint32_t CairoPixels::at(int x, int y) const {
  std::uint32_t value = 0;
  std::memcpy(&value, data_ + std::ptrdiff_t{y} * rowBytes_ + std::ptrdiff_t{x} * 4, 4);
  return value;
}

std::vector<std::uint8_t> CairoPixels::straightRgba(int left, int top, int width,
                                                    int height) const {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
  for (int y = top; y < top + height; ++y)
    for (int x = left; x < left + width; ++x) {
      const std::uint32_t pixel = at(x, y);
      const std::uint32_t alpha = pixel >> 24U;
      for (const unsigned shift : {16U, 8U, 0U}) {
        const std::uint32_t multiplied = pixel >> shift & 255U;
        bytes.push_back(static_cast<std::uint8_t>(
            alpha == 0 ? 0 : std::min(255U, (multiplied * 255U + alpha / 2) / alpha)));
      }
      bytes.push_back(static_cast<std::uint8_t>(alpha));
    }
  return bytes;
}

}  // namespace orivanta::graphics
