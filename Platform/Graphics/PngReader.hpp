// PNG files into pixels, by libpng.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

bool isPng(std::span<const std::uint8_t> bytes);

/// Null when the file is damaged, cut off or too large.
std::shared_ptr<const Image> decodePng(std::span<const std::uint8_t> bytes, double scale);

}  // namespace orivanta::graphics
