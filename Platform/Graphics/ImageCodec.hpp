// The port for decoding and encoding images in memory. An adapter defines the function below, and
// `decodeImage` and `encodePng` of ImageFile.hpp.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// Returns the size of the image in a PNG or JPEG file, given the beginning of the file. Returns
/// nothing if the format is not PNG or JPEG or if the bytes do not contain the size. Any thread.
std::optional<PixelSize> decodeImageSize(std::span<const std::uint8_t> bytes);

}  // namespace orivanta::graphics
