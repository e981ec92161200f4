#include "Platform/Graphics/Image.hpp"

#include <cmath>
#include <utility>

namespace orivanta::graphics {

namespace {

bool hasOpaquePixelsOnly(const std::vector<std::uint8_t>& pixels) {
  std::uint8_t least = 255;
  for (std::size_t i = 3; i < pixels.size(); i += 4) least &= pixels[i];
  return least == 255;
}

}  // namespace

std::shared_ptr<const Image> Image::make(std::uint32_t width, std::uint32_t height,
                                         std::vector<std::uint8_t> pixels, double scale) {
  if (!allows(width, height) || pixels.size() != std::size_t{width} * height * 4) return nullptr;
  if (!(scale > 0.0) || !std::isfinite(scale)) return nullptr;
  return std::shared_ptr<const Image>(new Image(width, height, std::move(pixels), scale));
}

Image::Image(std::uint32_t width, std::uint32_t height, std::vector<std::uint8_t> pixels,
             double scale)
    : width_(width),
      height_(height),
      pixels_(std::move(pixels)),
      scale_(scale),
      opaque_(hasOpaquePixelsOnly(pixels_)) {}

}  // namespace orivanta::graphics
