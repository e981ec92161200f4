#include "Platform/Graphics/BoxFilter.hpp"

#include <algorithm>

namespace orivanta::graphics {

namespace {

// The sums of a larger square would not fit into 32 bits.
constexpr std::uint32_t largestFactor = 256;

std::uint32_t dividedUp(std::uint32_t value, std::uint32_t by) { return (value + by - 1) / by; }

// Rounds to nearest; returns 0 if `count` is 0.
std::uint8_t mean(std::uint32_t sum, std::uint32_t count) {
  return count == 0 ? std::uint8_t{0}
                    : static_cast<std::uint8_t>((std::uint64_t{sum} + count / 2) / count);
}

}  // namespace

std::uint32_t reductionFor(std::uint32_t width, std::uint32_t height, std::uint64_t mostPixels) {
  std::uint32_t factor = 1;
  while (factor < largestFactor &&
         std::uint64_t{dividedUp(width, factor)} * dividedUp(height, factor) > mostPixels)
    ++factor;
  return factor;
}

BoxFilter::BoxFilter(std::uint32_t width, std::uint32_t height, std::uint32_t factor)
    : fullWidth_(width),
      fullHeight_(height),
      factor_(factor),
      width_(dividedUp(width, factor)),
      height_(dividedUp(height, factor)),
      sums_(width_),
      pixels_(std::size_t{4} * width_ * height_) {}

void BoxFilter::addRow(const std::uint8_t* pixels) {
  if (rowsAdded_ == fullHeight_) return;
  for (std::uint32_t square = 0, x = 0; square < width_; ++square) {
    Sums& sums = sums_[square];
    for (const std::uint32_t end = std::min(fullWidth_, x + factor_); x < end; ++x, pixels += 4) {
      const std::uint32_t alpha = pixels[3];
      sums.red += pixels[0] * alpha;
      sums.green += pixels[1] * alpha;
      sums.blue += pixels[2] * alpha;
      sums.alpha += alpha;
    }
  }
  ++rowsAdded_;
  if (rowsAdded_ % factor_ == 0)
    finishSquares(factor_);
  else if (rowsAdded_ == fullHeight_)
    finishSquares(fullHeight_ % factor_);
}

void BoxFilter::finishSquares(std::uint32_t rows) {
  std::uint8_t* target = pixels_.data() + std::size_t{4} * width_ * ((rowsAdded_ - 1) / factor_);
  for (std::uint32_t square = 0; square < width_; ++square, target += 4) {
    const Sums sums = sums_[square];
    const std::uint32_t columns = std::min(factor_, fullWidth_ - square * factor_);
    target[0] = mean(sums.red, sums.alpha);
    target[1] = mean(sums.green, sums.alpha);
    target[2] = mean(sums.blue, sums.alpha);
    target[3] = mean(sums.alpha, rows * columns);
    sums_[square] = {};
  }
}

}  // namespace orivanta::graphics
