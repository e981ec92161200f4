// Checks of PNG files that the decoder does not make.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// Returns whether the bytes begin with the signature of a PNG file.
bool hasPngSignature(std::span<const std::uint8_t> bytes);

/// Returns the size of a PNG image from the beginning of its file, or nothing if there are too few
/// bytes.
std::optional<PixelSize> sizeOfPng(std::span<const std::uint8_t> bytes);

/// Returns whether a PNG file is complete, the checksums of its pixels and colors are right, and
/// its data may be enough for its size. The bytes must begin with the signature.
bool isSoundPng(std::span<const std::uint8_t> bytes);

}  // namespace orivanta::graphics
