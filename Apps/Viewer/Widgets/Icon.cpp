#include "Apps/Viewer/Widgets/Icon.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "Platform/View/Canvas.hpp"

namespace orivanta::viewer {

namespace {

using graphics::Point;

constexpr double iconSide = 24;

double distanceToSegment(Point point, Point from, Point to) {
  const double x = to.x - from.x;
  const double y = to.y - from.y;
  const double square = x * x + y * y;
  const double along = ((point.x - from.x) * x + (point.y - from.y) * y) / square;
  const double share = square > 0 ? std::clamp(along, 0.0, 1.0) : 0.0;
  return std::hypot(point.x - from.x - share * x, point.y - from.y - share * y);
}

double distanceTo(const Icon& icon, Point point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const Stroke& stroke : icon.strokes)
    for (std::size_t i = 1; i < stroke.size(); ++i)
      nearest = std::min(nearest, distanceToSegment(point, stroke[i - 1], stroke[i]));
  return nearest;
}

std::uint8_t byteOf(double part) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
}

// Draws a square. `colorAt` takes the center of a pixel in pixels.
template <class ColorAt>
std::shared_ptr<const graphics::Image> paint(double side, double scale, const ColorAt& colorAt) {
  const auto pixels = static_cast<std::uint32_t>(std::max(1.0, std::ceil(side * scale)));
  std::vector<std::uint8_t> bytes;
  bytes.reserve(std::size_t{4} * pixels * pixels);
  for (std::uint32_t y = 0; y < pixels; ++y)
    for (std::uint32_t x = 0; x < pixels; ++x) {
      const graphics::Color color = colorAt({x + 0.5, y + 0.5}, pixels);
      for (const float part : {color.red, color.green, color.blue, color.alpha})
        bytes.push_back(byteOf(static_cast<double>(part)));
    }
  return graphics::Image::make(pixels, pixels, std::move(bytes), scale);
}

}  // namespace

std::shared_ptr<const graphics::Image> drawIcon(const Icon& icon, graphics::Color color,
                                                double side, double scale) {
  return paint(side, scale, [&](Point pixel, std::uint32_t pixels) {
    const double unit = pixels / iconSide;  // pixels
    const double distance = distanceTo(icon, {pixel.x / unit, pixel.y / unit}) * unit;
    graphics::Color painted = color;
    painted.alpha *=
        static_cast<float>(std::clamp(icon.lineWidth * unit / 2 - distance + 0.5, 0.0, 1.0));
    return painted;
  });
}

IconView::IconView(Icon icon, theme::Paint color) : icon_(std::move(icon)), color_(color) {
  setUserInteractionEnabled(false);
}

void IconView::setIcon(Icon icon) {
  icon_ = std::move(icon);
  image_ = nullptr;
}

void IconView::draw(view::Canvas& canvas) {
  const double side = bounds().size.width;
  if (side <= 0) return;
  const graphics::Color color = color_;
  if (!image_ || image_->scale() != canvas.scale() || side_ != side || !(imageColor_ == color)) {
    image_ = drawIcon(icon_, color, side, canvas.scale());
    side_ = side;
    imageColor_ = color;
  }
  canvas.draw(image_, bounds());
}

std::shared_ptr<const graphics::Image> drawDot(graphics::Color color, double side, double scale) {
  constexpr double borderShare = 0.28;  // of the radius
  return paint(side, scale, [&](Point pixel, std::uint32_t pixels) {
    const double radius = pixels / 2.0;
    const double distance = std::hypot(pixel.x - radius, pixel.y - radius);
    const auto inside =
        static_cast<float>(std::clamp(radius * (1 - borderShare) - distance + 0.5, 0.0, 1.0));
    const auto mix = [&](float part) { return part * inside + (1 - inside); };
    return graphics::Color{mix(color.red), mix(color.green), mix(color.blue),
                           static_cast<float>(std::clamp(radius - distance, 0.0, 1.0))};
  });
}

}  // namespace orivanta::viewer
