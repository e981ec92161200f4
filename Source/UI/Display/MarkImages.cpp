#include "Source/UI/Display/MarkImages.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

#include "Platform/Graphics/Text.hpp"
#include "Source/UI/MarkerImages.hpp"

namespace orivanta {

using graphics::Image;

namespace {

constexpr double dotBorder = 3;         // points
constexpr double pinHeadHeight = 23;    // of the center of a pin's head
constexpr double pinNumberGround = 12;  // replaces the white dot in the head

// Returns the fraction of a pixel at a distance from the center that a disc covers.
double coverage(double distance, double radius) {
  return std::clamp(radius - distance + 0.5, 0.0, 1.0);
}

// Returns a colored disc in a white ring. `width` and `border` are in points.
std::shared_ptr<const Image> makeDisc(double width, double border, graphics::Color color,
                                      double scale) {
  const auto side = static_cast<std::uint32_t>(std::lround(width * scale));
  const double radius = side / 2.0;
  std::vector<std::uint8_t> pixels;
  for (std::uint32_t row = 0; row < side; ++row)
    for (std::uint32_t column = 0; column < side; ++column) {
      const double distance = std::hypot(column + 0.5 - radius, row + 0.5 - radius);
      const double inner = coverage(distance, radius - border * scale);
      for (const float part : {color.red, color.green, color.blue})
        pixels.push_back(static_cast<std::uint8_t>(std::lround(255 * (1 - inner * (1 - part)))));
      pixels.push_back(
          static_cast<std::uint8_t>(std::lround(255 * coverage(distance, radius - 0.5))));
    }
  return Image::make(side, side, std::move(pixels), scale);
}

// Draws a pixel over another one. The color parts are not multiplied by the alpha part.
void drawOver(std::uint8_t* below, const std::uint8_t* above) {
  const int covered = above[3] * 255;
  const int visible = below[3] * (255 - above[3]);
  const int alpha = covered + visible;
  if (alpha == 0) return;
  for (int part = 0; part < 3; ++part)
    below[part] = static_cast<std::uint8_t>(
        (above[part] * covered + below[part] * visible + alpha / 2) / alpha);
  below[3] = static_cast<std::uint8_t>((alpha + 127) / 255);
}

// An image onto which others are drawn. They are moved to be entirely inside it.
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
    for (std::uint32_t row = 0; row < image.height(); ++row)
      for (std::uint32_t column = 0; column < image.width(); ++column)
        drawOver(&pixels_[std::size_t{4} * ((top + row) * width_ + left + column)],
                 &image.pixels()[std::size_t{4} * (row * image.width() + column)]);
  }

  // `middle` is in points, relative to the center of the sheet.
  void putMiddle(const std::shared_ptr<const Image>& image, graphics::Point middle) {
    if (!image) return;
    const graphics::Size size = image->size();
    put(*image, {middle.x - size.width / 2, middle.y - size.height / 2});
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
                                   : makeDisc(dotSide, dotBorder, color, scale);
}

void putNumber(Sheet& sheet, MarkSymbol symbol, const MarkContent& content, double scale) {
  const bool isPin = symbol == MarkSymbol::pin;
  const graphics::Point middle{0, isPin ? -pinHeadHeight : 0};
  if (isPin) sheet.putMiddle(makeDisc(pinNumberGround, 0, content.color, scale), middle);
  graphics::TextStyle style;
  style.fontSize = isPin ? 13 : 10;
  style.bold = true;
  style.color = graphics::colors::white;
  sheet.putMiddle(graphics::makeTextImage(content.number, style, scale), middle);
}

}  // namespace

std::shared_ptr<const Image> makeMarkImage(const MarkLook& look, const MarkContent& content,
                                           double scale) {
  auto symbol = symbolImage(look.symbol, content.color, scale);
  if (!content.text && content.number.empty()) return symbol;
  const graphics::Size text = content.text ? content.text->size() : graphics::Size{};
  const MarkFrames frames = framesOf({{0, 0}, text}, look);
  const graphics::Size whole = symbol->size();
  const auto reach = [&](double least, double most, double ofSymbol) {
    return 2 * std::max({std::abs(least), std::abs(most), ofSymbol / 2});
  };
  Sheet sheet({reach(frames.text.minX(), frames.text.maxX(), whole.width),
               reach(frames.text.minY(), frames.text.maxY(), whole.height)},
              scale);
  sheet.putMiddle(symbol, {0, 0});
  if (!content.number.empty()) putNumber(sheet, look.symbol, content, scale);
  if (content.text) sheet.put(*content.text, frames.text.origin);
  return std::move(sheet).finish();
}

}  // namespace orivanta
