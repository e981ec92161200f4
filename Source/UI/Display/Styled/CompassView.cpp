#include "Source/UI/Display/Styled/CompassView.hpp"

#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "Platform/Graphics/Drawing.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/TapGestureRecognizer.hpp"

namespace orivanta {

namespace {

using graphics::DrawingPart;

constexpr double leastTurn = 0.002;  // radians

// On a square around the origin with sides of 44 units.
constexpr double unitsOfDrawing = CompassView::side;
constexpr std::string_view rim = "O0 0 18";
constexpr std::string_view face = "O0 0 17";
constexpr std::string_view northHalf = "M -4.5 0 L 0 -13 L 4.5 0 Z";
constexpr std::string_view southHalf = "M -4.5 0 L 0 13 L 4.5 0 Z";

}  // namespace

std::shared_ptr<CompassView> CompassView::make(std::function<void()> tapped) {
  auto compass = std::make_shared<CompassView>();
  compass->setHidden(true);
  auto tap = std::make_shared<view::TapGestureRecognizer>();
  tap->addTarget("compassTapped:",
                 [tapped = std::move(tapped)](view::GestureRecognizer&) { tapped(); });
  compass->addGestureRecognizer(tap);
  return compass;
}

void CompassView::setTheme(std::shared_ptr<const MapTheme> theme) {
  const graphics::Transaction transaction;
  theme_ = std::move(theme);
  scale_ = 0;
  setNeedsFrame();
}

void CompassView::setTurn(double turn) {
  const graphics::Transaction transaction;
  turn_ = turn;
  setHidden(std::abs(std::remainder(turn, 2 * std::numbers::pi)) < leastTurn);
}

void CompassView::drawImages(double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  const MapPalette& colors = theme_->colors;
  const std::array<DrawingPart, 2> disc{{{rim, theme_->walkableOutline()}, {face, colors.halo}}};
  const std::array<DrawingPart, 2> needle{{{northHalf, colors.pin}, {southHalf, colors.passed}}};
  disc_ = graphics::makeDrawingImage(disc, unitsOfDrawing, side, scale);
  needle_ = graphics::makeDrawingImage(needle, unitsOfDrawing, side, scale);
}

void CompassView::draw(view::Canvas& canvas) {
  if (!theme_) return;
  drawImages(canvas.scale());
  canvas.draw(disc_, bounds());
  canvas.draw(needle_, bounds(), 1, turn_);
}

}  // namespace orivanta
