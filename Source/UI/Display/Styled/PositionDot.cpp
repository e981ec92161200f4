#include "Source/UI/Display/Styled/PositionDot.hpp"

#include <array>
#include <cmath>

#include "Platform/Graphics/Drawing.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/MapView.hpp"

namespace orivanta {

namespace {

using graphics::Color;
using graphics::DrawingPart;

// Lengths in points.
constexpr double dotWidth = 22;
constexpr double coneSide = 72;
constexpr double discImageSide = 256;

constexpr float coneAlpha = 0.45F;
constexpr float discAlpha = 0.2F;

// On a square around the origin with sides of 24 units.
constexpr double unitsOfDrawing = 24;
constexpr std::string_view ring = "O0 0 11.5";
constexpr std::string_view dot = "O0 0 8.2";
constexpr std::string_view cone = "M 0 0 L -5.6 -9.7 C -2.1 -11.7 2.1 -11.7 5.6 -9.7 Z";
constexpr std::string_view disc = "O0 0 11.9";

Color faded(Color color, float alpha) {
  color.alpha = alpha;
  return color;
}

graphics::Rect around(graphics::Point middle, double width, double height) {
  return {{middle.x - width / 2, middle.y - height / 2}, {width, height}};
}

// Returns the clockwise turn of an arrow that points up, so that it points in a direction of the
// ground.
double turnInView(double heading, const CameraPose& pose) {
  const double angle = heading - pose.turn;
  return std::atan2(-std::sin(angle), std::cos(angle) * std::cos(pose.tilt));
}

}  // namespace

void PositionDot::drawImages(const MapTheme& theme, double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  const Color blue = theme.colors.iconInfo;
  const auto image = [&](std::initializer_list<DrawingPart> parts, double points) {
    return graphics::makeDrawingImage({parts.begin(), parts.size()}, unitsOfDrawing, points, scale);
  };
  dot_ = image({{ring, theme.colors.iconSymbol}, {dot, blue}}, dotWidth);
  const Color light = theme.isDark ? theme.colors.route : blue;
  cone_ = image({{cone, faded(light, coneAlpha)}}, coneSide);
  disc_ = image({{disc, faded(light, discAlpha)}}, discImageSide);
}

void PositionDot::draw(view::Canvas& canvas, const MapView& view, const MapPosition& position,
                       double unitsPerMeter, const MapTheme& theme) {
  const CameraPose pose = view.camera().pose();
  const graphics::Vector3 place{static_cast<float>(position.x), static_cast<float>(position.y),
                                static_cast<float>(position.z)};
  const double depth = depthOf(place, pose);
  if (!(depth > 0)) return;
  drawImages(theme, canvas.scale());
  const graphics::Point middle = view.findPositionCameraViewport(place);
  const double width =
      2 * position.accuracyMeters * unitsPerMeter / (view.camera().lens().slopePerPoint() * depth);
  if (width > dotWidth) canvas.draw(disc_, around(middle, width, width * std::cos(pose.tilt)));
  if (position.heading)
    canvas.draw(cone_, around(middle, coneSide, coneSide), 1, turnInView(*position.heading, pose));
  canvas.draw(dot_, around(middle, dotWidth, dotWidth));
}

}  // namespace orivanta
