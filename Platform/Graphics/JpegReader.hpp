// JPEG files into pixels, by libjpeg-turbo.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

bool isJpeg(std::span<const std::uint8_t> bytes);

/// What the beginning of a JPEG file says. Nothing if the size does not come that early.
std::optional<PixelSize> jpegSize(std::span<const std::uint8_t> bytes);

/// Null when the file is damaged, cut off, too large or in CMYK. A picture of more than
/// `mostPixels` is made smaller as `reductionFor` says, without ever being in memory whole.
std::shared_ptr<const Image> decodeJpeg(std::span<const std::uint8_t> bytes, double scale,
                                        std::uint64_t mostPixels);

}  // namespace orivanta::graphics
