#include "Source/UI/Display/MarkImages.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "Source/UI/MarkerImages.hpp"

namespace orivanta {

using graphics::Image;

namespace {

constexpr double dotBorder = 3;  // points

// Returns the fraction of a pixel at a distance from the center that a disc covers.
double coverage(double distance, double radius) {
  return std::clamp(radius - distance + 0.5, 0.0, 1.0);
}

// Returns a colored disc in a white ring.
std::shared_ptr<const Image> makeDotImage(graphics::Color color, double scale) {
  const auto side = static_cast<std::uint32_t>(std::lround(dotSide * scale));
  const double radius = side / 2.0;
  std::vector<std::uint8_t> pixels;
  for (std::uint32_t row = 0; row < side; ++row)
    for (std::uint32_t column = 0; column < side; ++column) {
      const double distance = std::hypot(column + 0.5 - radius, row + 0.5 - radius);
      const double inner = coverage(distance, radius - dotBorder * scale);
      for (const float part : {color.red, color.green, color.blue})
        pixels.push_back(static_cast<std::uint8_t>(std::lround(255 * (1 - inner * (1 - part)))));
      pixels.push_back(
          static_cast<std::uint8_t>(std::lround(255 * coverage(distance, radius - 0.5))));
    }
  return Image::make(side, side, std::move(pixels), scale);
}

// An image onto which others are copied. They are moved to be entirely inside it.
class Sheet {
 public:
  Sheet(graphics::Size size, double scale)
      : width_(static_cast<std::uint32_t>(std::ceil(size.width * scale)) + 2),
        height_(static_cast<std::uint32_t>(std::ceil(size.height * scale)) + 2),
        scale_(scale),
        pixels_(std::size_t{4} * width_ * height_) {}

  // `corner` is in points, relative to the center of the sheet.
  void put(const Image& image, graphics::Point corner) {
    const auto pixel = [&](double place, std::uint32_t room, std::uint32_t length) {
      const double wanted = std::round(room / 2.0 + place * scale_);
      return static_cast<std::uint32_t>(std::clamp(wanted, 0.0, double(room) - double(length)));
    };
    const std::uint32_t left = pixel(corner.x, width_, image.width());
    const std::uint32_t top = pixel(corner.y, height_, image.height());
    const std::size_t rowBytes = std::size_t{4} * image.width();
    for (std::uint32_t row = 0; row < image.height(); ++row)
      std::copy_n(image.pixels().begin() + static_cast<std::ptrdiff_t>(row * rowBytes), rowBytes,
                  pixels_.begin() + 4 * (static_cast<std::ptrdiff_t>(top + row) * width_ + left));
  }

  std::shared_ptr<const Image> finish() && {
    return Image::make(width_, height_, std::move(pixels_), scale_);
  }

 private:
  std::uint32_t width_;
  std::uint32_t height_;
  double scale_;
  std::vector<std::uint8_t> pixels_;
};

// The lower half of a pin's image is empty.
std::shared_ptr<const Image> symbolImage(MarkSymbol symbol, graphics::Color color, double scale) {
  return symbol == MarkSymbol::pin ? makePinImage(color, pinHeight, scale)
                                   : makeDotImage(color, scale);
}

}  // namespace

std::shared_ptr<const Image> makeMarkImage(const MarkLook& look, graphics::Color color,
                                           const std::shared_ptr<const Image>& text, double scale) {
  auto symbol = symbolImage(look.symbol, color, scale);
  if (!text) return symbol;
  const MarkFrames frames = framesOf({{0, 0}, text->size()}, look);
  const graphics::Size whole = symbol->size();
  const auto reach = [&](double least, double most, double ofSymbol) {
    return 2 * std::max({std::abs(least), std::abs(most), ofSymbol / 2});
  };
  Sheet sheet({reach(frames.text.minX(), frames.text.maxX(), whole.width),
               reach(frames.text.minY(), frames.text.maxY(), whole.height)},
              scale);
  sheet.put(*symbol, {-whole.width / 2, -whole.height / 2});
  sheet.put(*text, frames.text.origin);
  return std::move(sheet).finish();
}

}  // namespace orivanta
