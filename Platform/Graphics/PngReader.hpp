// PNG files into pixels, by libpng.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

bool isPng(std::span<const std::uint8_t> bytes);

/// What the beginning of a PNG file says. Nothing if it is too short.
std::optional<PixelSize> pngSize(std::span<const std::uint8_t> bytes);

/// Null when the file is damaged, cut off or too large. A picture of more than `mostPixels` is made
/// smaller as `reductionFor` says, without ever being in memory whole unless it is interlaced.
std::shared_ptr<const Image> decodePng(std::span<const std::uint8_t> bytes, double scale,
                                       std::uint64_t mostPixels);

}  // namespace orivanta::graphics
