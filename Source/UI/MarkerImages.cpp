#include "Source/UI/MarkerImages.hpp"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace orivanta {

namespace {

using graphics::Color;
using graphics::Point;

// A pin of height 1 with its tip at the origin and y pointing up: a round head with tangents to
// the tip.
constexpr double headRadius = 0.32;
constexpr double headHeight = 1.0 - headRadius;  // of its center
constexpr double border = 0.05;
constexpr double dotRadius = 0.12;
constexpr double pinWidth = 2 * headRadius;
constexpr double labelGap = 2;    // points between a pin's tip and its label
constexpr int samplesAcross = 4;  // per pixel, for smooth edges

bool isInPin(Point point, double inset) {
  const double radius = headRadius - inset;
  if (std::hypot(point.x, point.y - headHeight) <= radius) return true;
  const double tip = inset * headHeight / headRadius;
  const double length = headHeight - tip;
  const double along = point.y - tip;
  // The tangents touch the head where its radius is perpendicular to them.
  const double sine = radius / length;
  const double tangentHeight = length - radius * sine;
  return along >= 0 && along <= tangentHeight &&
         std::abs(point.x) <= along * sine / std::sqrt(1 - sine * sine);
}

Color colorAt(Point point, Color color) {
  if (!isInPin(point, 0)) return graphics::colors::clear;
  const bool isDot = std::hypot(point.x, point.y - headHeight) <= dotRadius;
  return isDot || !isInPin(point, border) ? graphics::colors::white : color;
}

std::uint8_t byteOf(float part) { return static_cast<std::uint8_t>(std::lround(part * 255)); }

// Returns the mean color of a pixel, which is `size` units wide.
void paintPixel(std::uint8_t* pixel, Point corner, double size, Color color) {
  Color sum = graphics::colors::clear;
  for (int i = 0; i < samplesAcross * samplesAcross; ++i) {
    const int column = i % samplesAcross;
    const int row = i / samplesAcross;
    const double x = corner.x + size * (column + 0.5) / samplesAcross;
    const double y = corner.y - size * (row + 0.5) / samplesAcross;
    const Color sample = colorAt({x, y}, color);
    sum.red += sample.red * sample.alpha;
    sum.green += sample.green * sample.alpha;
    sum.blue += sample.blue * sample.alpha;
    sum.alpha += sample.alpha;
  }
  if (sum.alpha == 0) return;
  pixel[0] = byteOf(sum.red / sum.alpha);
  pixel[1] = byteOf(sum.green / sum.alpha);
  pixel[2] = byteOf(sum.blue / sum.alpha);
  pixel[3] = byteOf(sum.alpha / (samplesAcross * samplesAcross));
}

// Composes an image from others. Later images replace the pixels below them.
class Collage {
 public:
  Collage(std::uint32_t width, std::uint32_t height)
      : width_(width), height_(height), pixels_(std::size_t{4} * width * height) {}

  void paste(const graphics::Image& image, std::uint32_t left, std::uint32_t top) {
    const std::size_t rowBytes = std::size_t{4} * image.width();
    for (std::uint32_t row = 0; row < image.height(); ++row)
      std::copy_n(image.pixels().begin() + static_cast<std::ptrdiff_t>(row * rowBytes), rowBytes,
                  pixels_.begin() + (static_cast<std::ptrdiff_t>(top + row) * width_ + left) * 4);
  }

  std::shared_ptr<const graphics::Image> finish(double scale) && {
    return graphics::Image::make(width_, height_, std::move(pixels_), scale);
  }

 private:
  std::uint32_t width_;
  std::uint32_t height_;
  std::vector<std::uint8_t> pixels_;
};

// The pin's tip stays at the center of the image.
std::shared_ptr<const graphics::Image> withLabel(const graphics::Image& pin,
                                                 const graphics::Image& label, double scale) {
  const auto gap = static_cast<std::uint32_t>(std::lround(labelGap * scale));
  const std::uint32_t half = std::max(pin.height() / 2, label.height() + gap);
  const std::uint32_t across = std::max(pin.width(), label.width());
  Collage collage(across, 2 * half);
  collage.paste(pin, (across - pin.width()) / 2, half - pin.height() / 2);
  collage.paste(label, (across - label.width()) / 2, half + gap);
  return std::move(collage).finish(scale);
}

}  // namespace

std::shared_ptr<const graphics::Image> makePinImage(Color color, double height, double scale) {
  const double pixelsHigh = std::ceil(height * scale);
  const auto columns = static_cast<std::uint32_t>(std::ceil(pinWidth * pixelsHigh));
  const auto rows = static_cast<std::uint32_t>(pixelsHigh);
  const double size = 1 / pixelsHigh;
  std::vector<std::uint8_t> pixels(std::size_t{4} * columns * rows * 2);
  for (std::uint32_t row = 0; row < rows; ++row)
    for (std::uint32_t column = 0; column < columns; ++column)
      paintPixel(&pixels[std::size_t{4} * (row * columns + column)],
                 {(column - columns / 2.0) * size, 1 - row * size}, size, color);
  return graphics::Image::make(columns, rows * 2, std::move(pixels), scale);
}

graphics::TextStyle labelStyle(double fontSize) {
  graphics::TextStyle style;
  style.fontSize = fontSize;
  style.color = {0.13F, 0.16F, 0.22F};
  style.outlineColor = {1, 1, 1, 0.9F};
  style.outlineWidth = std::max(1.5, fontSize / 7);
  style.maximumWidth = 11 * fontSize;
  style.maximumLines = 2;
  return style;
}

std::shared_ptr<MapViewMarker2D> makeImageMarker(std::shared_ptr<const graphics::Image> image) {
  if (!image) return nullptr;
  const graphics::Size size = image->size();
  return std::make_shared<MapViewMarker2D>(size, std::move(image));
}

std::shared_ptr<MapViewMarker2D> makeLabelMarker(std::string_view text,
                                                 const graphics::TextStyle& style, double scale) {
  auto marker = makeImageMarker(graphics::makeTextImage(text, style, scale));
  if (marker) marker->hideWhenCollide = true;
  return marker;
}

std::shared_ptr<MapViewMarker2D> makePinMarker(Color color, double height, std::string_view text,
                                               const graphics::TextStyle& style, double scale) {
  const auto pin = makePinImage(color, height, scale);
  const auto label = graphics::makeTextImage(text, style, scale);
  return makeImageMarker(label ? withLabel(*pin, *label, scale) : pin);
}

}  // namespace orivanta
