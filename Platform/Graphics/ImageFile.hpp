// Reading PNG and JPEG files, and writing PNG files.
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

/// Decodes the bytes of a PNG or JPEG file. Ignores color profiles, gamma and the orientation that
/// a camera stores. Returns null if the format is not PNG or JPEG, if the data is damaged,
/// truncated or a CMYK JPEG, or if the image exceeds the limits of `Image`. An image of more than
/// `mostPixels` pixels is reduced while it is decoded: both sides are divided by the smallest
/// integer up to 256 that is sufficient. Any thread.
ORIVANTA_API std::shared_ptr<const Image> decodeImage(
    std::span<const std::uint8_t> bytes, double scale = 1.0,
    std::uint64_t mostPixels = Image::maximumPixels);

/// Reads and decodes a file. Returns null as above, or if the file cannot be read or is larger than
/// 256 MiB. Blocks while other threads read images that together need much memory. Any thread.
ORIVANTA_API std::shared_ptr<const Image> readImage(
    const std::filesystem::path& file, double scale = 1.0,
    std::uint64_t mostPixels = Image::maximumPixels);

/// Returns the size of the image in a file without reading the whole file, or nothing if the
/// beginning of the file does not contain it. Any thread.
ORIVANTA_API std::optional<PixelSize> readImageSize(const std::filesystem::path& file);

/// How much time encoding may take for small files. `low` suits drawings of few colors, whose files
/// become hardly larger.
enum class PngEffort {
  low,   ///< encodes a few times faster
  usual  ///< the default of libpng
};

/// Encodes an image as PNG: as RGB if it is opaque, otherwise as RGBA. Any thread.
ORIVANTA_API std::vector<std::uint8_t> encodePng(const Image& image,
                                                 PngEffort effort = PngEffort::usual);

/// Writes an image to a PNG file atomically. Any thread.
ORIVANTA_API foundation::Result<void> writePng(const Image& image,
                                               const std::filesystem::path& file,
                                               PngEffort effort = PngEffort::usual);

}  // namespace orivanta::graphics
