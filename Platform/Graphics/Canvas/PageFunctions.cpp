#include "Platform/Graphics/Canvas/PageFunctions.hpp"

#include <utility>
#include <vector>

namespace orivanta::graphics {

std::shared_ptr<const Image> takeImage(std::uint32_t width, std::uint32_t height, double scale) {
  std::vector<std::uint8_t> pixels(std::size_t{4} * width * height);
  orivantaTakePixels(pixels.data(), pixels.size());
  return Image::make(width, height, std::move(pixels), scale);
}

}  // namespace orivanta::graphics
