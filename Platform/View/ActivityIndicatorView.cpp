#include "Platform/View/ActivityIndicatorView.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::view {

using graphics::Color;
using graphics::Point;
using graphics::Transaction;

namespace {

constexpr int spokeCount = 12;
constexpr double turnPerSpoke = 2.0 * 3.14159265358979323846 / spokeCount;
constexpr double spokesPerSecond = 12.0;

double side(ActivityIndicatorStyle style) {
  return style == ActivityIndicatorStyle::whiteLarge ? 37.0 : 20.0;
}

// How much of the pixel around `point` a spoke covers. The spoke is a line from `innerRadius` to
// `outerRadius` with round ends. In pixels from the wheel's center.
double coverage(Point point, double angle, double innerRadius, double outerRadius,
                double halfWidth) {
  const Point along{std::sin(angle), -std::cos(angle)};
  const double radius = std::clamp(point.x * along.x + point.y * along.y, innerRadius, outerRadius);
  const double distance = std::hypot(point.x - radius * along.x, point.y - radius * along.y);
  return std::clamp(halfWidth - distance + 0.5, 0.0, 1.0);
}

// The alpha of the wheel at a point, in pixels from its center. The spoke at the top is opaque, and
// the spokes that it has passed are increasingly transparent.
double alphaAt(Point point, double diameter) {
  double alpha = 0.0;
  for (int spoke = 0; spoke < spokeCount; ++spoke) {
    const double strength = 1.0 - 0.75 * spoke / (spokeCount - 1);
    alpha = std::max(alpha, strength * coverage(point, -spoke * turnPerSpoke, 0.27 * diameter,
                                                0.45 * diameter, 0.045 * diameter));
  }
  return alpha;
}

std::uint8_t byte(double level) { return static_cast<std::uint8_t>(std::lround(level * 255.0)); }

std::shared_ptr<const graphics::Image> makeWheel(double points, const Color& color, double scale) {
  const auto width = static_cast<std::uint32_t>(std::max(1.0, std::round(points * scale)));
  std::vector<std::uint8_t> pixels;
  pixels.reserve(std::size_t{4} * width * width);
  for (std::uint32_t y = 0; y < width; ++y)
    for (std::uint32_t x = 0; x < width; ++x) {
      const double alpha = alphaAt({x + 0.5 - width / 2.0, y + 0.5 - width / 2.0}, width);
      for (const double level :
           {color.red + 0.0, color.green + 0.0, color.blue + 0.0, alpha * color.alpha})
        pixels.push_back(byte(std::clamp(level, 0.0, 1.0)));
    }
  return graphics::Image::make(width, width, std::move(pixels), scale);
}

}  // namespace

ActivityIndicatorView::ActivityIndicatorView() {
  setStyle(style_);
  setUserInteractionEnabled(false);
}

ActivityIndicatorStyle ActivityIndicatorView::style() const { return graphics::read(style_); }

void ActivityIndicatorView::setStyle(ActivityIndicatorStyle style) {
  const Transaction transaction;
  style_ = style;
  setFrame({frame().origin, {side(style), side(style)}});
  setColor(style == ActivityIndicatorStyle::gray ? graphics::colors::gray
                                                 : graphics::colors::white);
}

Color ActivityIndicatorView::color() const { return graphics::read(color_); }

void ActivityIndicatorView::setColor(Color color) {
  const Transaction transaction;
  color_ = color;
  wheel_ = nullptr;
  graphics::noteChange();
}

void ActivityIndicatorView::startAnimating() { setAnimating(true); }

void ActivityIndicatorView::stopAnimating() { setAnimating(false); }

void ActivityIndicatorView::setAnimating(bool animating) {
  graphics::swapGuarded(animating_, animating);
}

bool ActivityIndicatorView::isAnimating() const {
  const Transaction transaction;
  return animating_ || View::isAnimating();
}

void ActivityIndicatorView::draw(Canvas& canvas) {
  const Transaction transaction;
  if (!animating_) return;
  View::draw(canvas);
  const double length = side(style_);
  if (!wheel_ || wheel_->scale() != canvas.scale())
    wheel_ = makeWheel(length, color_, canvas.scale());
  const double step = std::fmod(std::floor(canvas.time() * spokesPerSecond), spokeCount);
  const graphics::Rect all = bounds();
  canvas.draw(wheel_, {{all.midX() - length / 2, all.midY() - length / 2}, {length, length}}, 1.0,
              step * turnPerSpoke);
}

}  // namespace orivanta::view
