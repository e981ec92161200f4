// A picture in memory.
// Public header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"

namespace orivanta::graphics {

/// The sides of a picture in pixels.
struct PixelSize {
  std::uint32_t width = 0;   ///< pixels
  std::uint32_t height = 0;  ///< pixels

  /// The number of pixels.
  std::uint64_t pixels() const { return std::uint64_t{width} * height; }
};

/// Immutable and shared by handle, so any thread may read it. Pixels are 8-bit sRGB red, green,
/// blue and alpha, not multiplied by the alpha, rows from the top.
class ORIVANTA_API Image {
 public:
  /// `pixels` holds width * height * 4 bytes. Null when it does not, when a side is 0 or above
  /// `maximumSide`, and for more than `maximumPixels`. `scale`: pixels per point, above 0.
  static std::shared_ptr<const Image> make(std::uint32_t width, std::uint32_t height,
                                           std::vector<std::uint8_t> pixels, double scale = 1.0);

  static constexpr std::uint32_t maximumSide = 16384;         ///< pixels
  static constexpr std::uint64_t maximumPixels = 64'000'000;  ///< of the whole picture

  /// Whether a picture may have these sides.
  static constexpr bool allows(std::uint64_t width, std::uint64_t height) {
    return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide &&
           width * height <= maximumPixels;
  }

  std::uint32_t width() const { return width_; }    ///< pixels
  std::uint32_t height() const { return height_; }  ///< pixels
  double scale() const { return scale_; }           ///< pixels per point

  /// The pixels, as the class describes them, for as long as the image lives.
  std::span<const std::uint8_t> pixels() const { return pixels_; }

  /// The size in points.
  Size size() const { return {width_ / scale_, height_ / scale_}; }

  /// Whether no pixel is translucent.
  bool isOpaque() const { return opaque_; }

 private:
  Image(std::uint32_t width, std::uint32_t height, std::vector<std::uint8_t> pixels, double scale);

  std::uint32_t width_;
  std::uint32_t height_;
  std::vector<std::uint8_t> pixels_;
  double scale_;
  bool opaque_;
};

}  // namespace orivanta::graphics
