// Pictures made smaller while they are read, row by row.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace orivanta::graphics {

/// The smallest whole number by which both sides must be divided, rounded up, for at most
/// `mostPixels` to be left; at most 256.
std::uint32_t reductionFor(std::uint32_t width, std::uint32_t height, std::uint64_t mostPixels);

/// Makes each square of `factor` by `factor` pixels one pixel: the mean of the square, in which
/// colors count by their alpha. Squares at the right and lower edges may be narrower. Only
/// `addRow` may be called when functions are left by long jumps: it allocates nothing.
class BoxFilter {
 public:
  /// The sides of the picture before it is made smaller; `factor` is from 1 to 256.
  BoxFilter(std::uint32_t width, std::uint32_t height, std::uint32_t factor);

  /// The next row from the top, as red, green, blue and alpha of each pixel. Rows beyond the last
  /// one are ignored.
  void addRow(const std::uint8_t* pixels);

  std::uint32_t width() const { return width_; }    ///< after the picture was made smaller
  std::uint32_t height() const { return height_; }  ///< the same

  /// The smaller picture, after the last row.
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
  std::vector<Sums> sums_;  // of the squares that the last row belongs to
  std::vector<std::uint8_t> pixels_;
};

}  // namespace orivanta::graphics
