// Checks of JPEG files that the decoder does not make.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// Returns whether the bytes begin like a JPEG file.
bool isJpeg(std::span<const std::uint8_t> bytes);

/// Returns the size of a JPEG image from the beginning of its file. Returns nothing if the size is
/// not in it or exceeds the limits of `Image`.
std::optional<PixelSize> jpegSize(std::span<const std::uint8_t> bytes);

/// Returns whether a JPEG file has an end, is gray or in color but not in CMYK, has at most 200
/// scans, and has sound Huffman tables for each of them.
bool isSoundJpeg(std::span<const std::uint8_t> bytes);

}  // namespace orivanta::graphics
