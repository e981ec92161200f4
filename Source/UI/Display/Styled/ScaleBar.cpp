#include "Source/UI/Display/Styled/ScaleBar.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "Platform/Graphics/Text.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"

namespace orivanta {

namespace {

// Lengths in points.
constexpr double mostPoints = 110;
constexpr double thickness = 2;
constexpr double tickHeight = 7;
constexpr double halo = 1.5;
constexpr double textGap = 1;
constexpr double fontSize = 11;

constexpr double leastMeters = 0.01;
constexpr double mostMeters = 1e6;

std::string textOf(double meters) {
  if (meters >= 1000) return fmt::format("{:.0f} km", meters / 1000);
  if (meters >= 1) return fmt::format("{:.0f} m", meters);
  return fmt::format("{:.0f} cm", meters * 100);
}

void drawBracket(view::Canvas& canvas, const graphics::Rect& rect, double margin,
                 const graphics::Color& color) {
  const auto part = [&](double left, double top, double width, double height) {
    canvas.fill({{left - margin, top - margin}, {width + 2 * margin, height + 2 * margin}}, color);
  };
  part(rect.minX(), rect.maxY() - thickness, rect.size.width, thickness);
  part(rect.minX(), rect.minY(), thickness, rect.size.height);
  part(rect.maxX() - thickness, rect.minY(), thickness, rect.size.height);
}

}  // namespace

BarLength barLength(double pointsPerMeter, double most) {
  if (!(pointsPerMeter > 0) || !std::isfinite(pointsPerMeter)) return {};
  // The tolerance accepts a length that fits exactly.
  const double longest = most / pointsPerMeter * (1 + 1e-9);
  if (!(longest >= leastMeters)) return {};
  const double power = std::pow(10.0, std::floor(std::log10(std::min(longest, mostMeters))));
  double meters = power;
  for (const double factor : {2.0, 5.0})
    if (factor * power <= longest) meters = factor * power;
  return {meters * pointsPerMeter, textOf(meters)};
}

graphics::Rect ScaleBar::arrange(graphics::Point corner, double pointsPerMeter,
                                 const MapTheme& theme, double scale) {
  const BarLength length = barLength(pointsPerMeter, mostPoints);
  bar_ = textRect_ = {};
  if (length.points < 3 * thickness) return {};
  bar_ = {{corner.x, corner.y - tickHeight}, {length.points, tickHeight}};
  if (length.text != text_ || scale != scale_) {
    graphics::TextStyle style = nameStyle(theme, fontSize * theme.sizes.name / MapSizes().name);
    style.wholeLines = false;
    image_ = graphics::makeTextImage(length.text, style, scale);
    text_ = length.text;
    scale_ = scale;
  }
  if (!image_) return bar_;
  const graphics::Size size = image_->size();
  textRect_ = {{corner.x + (length.points - size.width) / 2,
                corner.y - thickness - halo - textGap - size.height},
               size};
  const double left = std::min(bar_.minX(), textRect_.minX());
  const double right = std::max(bar_.maxX(), textRect_.maxX());
  return {{left, textRect_.minY()}, {right - left, corner.y - textRect_.minY()}};
}

void ScaleBar::draw(view::Canvas& canvas, const MapTheme& theme) const {
  if (!(bar_.size.width > 0)) return;
  drawBracket(canvas, bar_, halo, theme.colors.halo);
  drawBracket(canvas, bar_, 0, theme.colors.text);
  if (image_ && textRect_.size.width > 0) canvas.draw(image_, textRect_);
}

}  // namespace orivanta
