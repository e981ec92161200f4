// An image in memory.
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

/// The size of an image in pixels.
struct PixelSize {
  std::uint32_t width = 0;   ///< pixels
  std::uint32_t height = 0;  ///< pixels

  /// Returns the number of pixels.
  std::uint64_t pixels() const { return std::uint64_t{width} * height; }
};

/// An immutable image, held by shared pointers. Any thread may read it. Each pixel is red, green,
/// blue and alpha, 8-bit sRGB, not premultiplied. The first row is at the top.
class ORIVANTA_API Image {
 public:
  /// Creates an image. Returns null if `pixels` does not have width * height * 4 bytes, if a side
  /// is 0 or greater than `maximumSide`, or if there are more than `maximumPixels` pixels. `scale`:
  /// pixels per point, greater than 0.
  static std::shared_ptr<const Image> make(std::uint32_t width, std::uint32_t height,
                                           std::vector<std::uint8_t> pixels, double scale = 1.0);

  static constexpr std::uint32_t maximumSide = 16384;         ///< pixels
  static constexpr std::uint64_t maximumPixels = 64'000'000;  ///< of the whole image

  /// Returns whether an image may have this size.
  static constexpr bool allows(std::uint64_t width, std::uint64_t height) {
    return width > 0 && height > 0 && width <= maximumSide && height <= maximumSide &&
           width * height <= maximumPixels;
  }

  std::uint32_t width() const { return width_; }    ///< pixels
  std::uint32_t height() const { return height_; }  ///< pixels
  double scale() const { return scale_; }           ///< pixels per point

  /// Returns the pixels in the format that the class describes. Valid as long as the image exists.
  std::span<const std::uint8_t> pixels() const { return pixels_; }

  /// Returns the size in points.
  Size size() const { return {width_ / scale_, height_ / scale_}; }

  /// Returns whether all pixels are opaque.
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
