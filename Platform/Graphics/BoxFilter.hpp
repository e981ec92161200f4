// Reduces images row by row while they are decoded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orivanta::graphics {

/// The smallest integer by which both sides must be divided (rounding up) so that at most
/// `mostPixels` remain; at most 256.
std::uint32_t reductionFor(std::uint32_t width, std::uint32_t height, std::uint64_t mostPixels);

/// Averages each square of `factor` by `factor` pixels to one pixel; colors are weighted by their
/// alpha. Squares at the right and bottom edges may be smaller. `addRow` allocates nothing, so it
/// is safe in code that uses longjmp; the other functions are not.
class BoxFilter {
 public:
  /// The size of the original image; `factor` is from 1 to 256.
  BoxFilter(std::uint32_t width, std::uint32_t height, std::uint32_t factor);

  /// Adds the next row from the top, as red, green, blue and alpha of each pixel. Rows beyond the
  /// last one are ignored.
  void addRow(const std::uint8_t* pixels);

  std::uint32_t width() const { return width_; }    ///< of the reduced image
  std::uint32_t height() const { return height_; }  ///< of the reduced image

  /// The reduced image. Call after the last row.
  std::vector<std::uint8_t> takePixels() { return std::move(pixels_); }

 private:
  struct Sums {
    std::uint32_t red = 0;
    std::uint32_t green = 0;
    std::uint32_t blue = 0;
    std::uint32_t alpha = 0;
  };

  void finishSquares(std::uint32_t rows);

  const std::uint32_t fullWidth_;
  const std::uint32_t fullHeight_;
  const std::uint32_t factor_;
  const std::uint32_t width_;
  const std::uint32_t height_;
  std::uint32_t rowsAdded_ = 0;
  std::vector<Sums> sums_;  // of the squares in the current row
  std::vector<std::uint8_t> pixels_;
};

}  // namespace orivanta::graphics
