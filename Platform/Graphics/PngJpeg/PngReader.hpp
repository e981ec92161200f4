// Decodes PNG files with libpng.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

bool isPng(std::span<const std::uint8_t> bytes);

/// The size of a PNG image from the beginning of its file. Returns nothing if there are too few
/// bytes.
std::optional<PixelSize> pngSize(std::span<const std::uint8_t> bytes);

/// Returns null if the file is damaged, incomplete or too large. An image of more than `mostPixels`
/// is reduced by `reductionFor` while it is decoded; its full size is in memory only if it is
/// interlaced.
std::shared_ptr<const Image> decodePng(std::span<const std::uint8_t> bytes, double scale,
                                       std::uint64_t mostPixels);

}  // namespace orivanta::graphics
