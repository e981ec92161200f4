// JPEG files into pixels, by libjpeg-turbo.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

bool isJpeg(std::span<const std::uint8_t> bytes);

/// Null when the file is damaged, cut off, too large or in CMYK.
std::shared_ptr<const Image> decodeJpeg(std::span<const std::uint8_t> bytes, double scale);

}  // namespace orivanta::graphics
