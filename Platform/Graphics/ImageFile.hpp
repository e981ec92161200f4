// Pictures from and to files: PNG and JPEG are read, PNG is written.
// Public header.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// The picture in a PNG or JPEG file's bytes, without regard to color profiles, gamma and the
/// turn that a camera notes. Null when they are neither, damaged, cut off, a JPEG in CMYK, or hold
/// more than a picture may. A picture of more than `mostPixels` is made smaller while it is read:
/// both sides are divided by the smallest whole number up to 256 that suffices. Any thread.
ORIVANTA_API std::shared_ptr<const Image> decodeImage(
    std::span<const std::uint8_t> bytes, double scale = 1.0,
    std::uint64_t mostPixels = Image::maximumPixels);

/// The picture in a file; null as above, and when the file cannot be read or has more than 256 MiB.
/// Waits while other threads read pictures that together take much memory. Any thread.
ORIVANTA_API std::shared_ptr<const Image> readImage(
    const std::filesystem::path& file, double scale = 1.0,
    std::uint64_t mostPixels = Image::maximumPixels);

/// The size of the picture in a file, without reading all of it. Nothing when the beginning of the
/// file does not tell. Any thread.
ORIVANTA_API std::optional<PixelSize> readImageSize(const std::filesystem::path& file);

/// A PNG file of the picture: RGB when it is opaque, else RGBA. Any thread.
ORIVANTA_API std::vector<std::uint8_t> encodePng(const Image& image);

/// Writes a PNG file whole or not at all. Any thread.
ORIVANTA_API foundation::Result<void> writePng(const Image& image,
                                               const std::filesystem::path& file);

}  // namespace orivanta::graphics
