#include "Apps/Command/Render/AttributionView.hpp"

#include <algorithm>

#include "Platform/Graphics/Text.hpp"
#include "Platform/View/Canvas.hpp"

namespace orivanta::command {

namespace {

constexpr double fontSize = 11;  // points
constexpr double lineHeight = 15;
constexpr double margin = 6;   // around the background
constexpr double padding = 5;  // around the text
constexpr double mostWidth = 640;
constexpr double mostShare = 1.0 / 3;  // of the image's height
constexpr graphics::Color ink{0.16F, 0.19F, 0.25F};
constexpr graphics::Color ground{1, 1, 1};
constexpr float groundAlpha = 0.82F;

// The logo at the lower right, with the space around it.
constexpr graphics::Size logo{88, 44};
constexpr double leastWidthBesideLogo = 200;

bool isLower(Corner corner) { return corner == Corner::lowerLeft || corner == Corner::lowerRight; }
bool isLeft(Corner corner) { return corner == Corner::lowerLeft || corner == Corner::upperLeft; }

// Returns the area for the background, relative to the upper left corner of the image.
graphics::Rect roomIn(graphics::Size picture, Corner corner) {
  graphics::Rect room{
      {margin, margin},
      {std::max(1.0, picture.width - 2 * margin), std::max(1.0, picture.height - 2 * margin)}};
  if (!isLower(corner)) return room;
  if (room.size.width - logo.width >= leastWidthBesideLogo)
    room.size.width -= logo.width;
  else
    room.size.height = std::max(1.0, room.size.height - logo.height);
  return room;
}

}  // namespace

AttributionView::AttributionView(std::string_view text, Corner corner, graphics::Size picture,
                                 double scale, const MapTheme* theme)
    : ground_(theme != nullptr ? theme->colors.halo : ground) {
  ground_.alpha = groundAlpha;
  setUserInteractionEnabled(false);
  const graphics::Rect room = roomIn(picture, corner);
  graphics::TextStyle style;
  style.fontSize = fontSize;
  style.color = theme != nullptr ? theme->colors.text : ink;
  style.alignment = graphics::TextAlignment::leading;
  style.maximumWidth = std::max(1.0, std::min(mostWidth, room.size.width) - 2 * padding);
  text_ = graphics::makeTextImage(text, style, scale);
  const double mostHeight = picture.height * mostShare - 2 * padding;
  if (!text_) return;
  if (text_->size().height > std::max(mostHeight, lineHeight)) {
    isWhole_ = false;
    style.maximumLines = std::max(1, static_cast<int>(mostHeight / lineHeight));
    text_ = graphics::makeTextImage(text, style, scale);
  }
  const graphics::Size size{text_->size().width + 2 * padding, text_->size().height + 2 * padding};
  setFrame({{isLeft(corner) ? room.minX() : room.maxX() - size.width,
             isLower(corner) ? room.maxY() - size.height : room.minY()},
            size});
}

void AttributionView::draw(view::Canvas& canvas) {
  if (!text_) return;
  canvas.fill(bounds(), ground_, 5);
  canvas.draw(text_, {{padding, padding}, text_->size()});
}

}  // namespace orivanta::command
