// Decodes JPEG files with libjpeg-turbo.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

bool isJpeg(std::span<const std::uint8_t> bytes);

/// The size of a JPEG image from the beginning of its file. Returns nothing if the size is not in
/// it.
std::optional<PixelSize> jpegSize(std::span<const std::uint8_t> bytes);

/// Returns null if the file is damaged, incomplete, too large or in CMYK. An image of more than
/// `mostPixels` is reduced by `reductionFor` while it is decoded, so its full size is never in
/// memory.
std::shared_ptr<const Image> decodeJpeg(std::span<const std::uint8_t> bytes, double scale,
                                        std::uint64_t mostPixels);

}  // namespace orivanta::graphics
