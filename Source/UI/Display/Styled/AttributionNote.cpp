#include "Source/UI/Display/Styled/AttributionNote.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/Text.hpp"

namespace orivanta {

namespace {

// Lengths in points.
constexpr double fontSize = 10;
constexpr double lineHeight = 14;
constexpr double padding = 4;
constexpr double cornerRadius = 4;
constexpr double mostWidth = 640;

constexpr float groundAlpha = 0.82F;

}  // namespace

void AttributionNote::setText(std::string text) {
  text_ = std::move(text);
  clear();
}

void AttributionNote::drawImage(const graphics::Size& room, double scale, const MapTheme& theme) {
  if (room == room_ && scale == scale_) return;
  room_ = room;
  scale_ = scale;
  graphics::TextStyle style;
  style.fontFamily = theme.fontFamily;
  style.fontSize = fontSize;
  style.color = theme.colors.text;
  style.alignment = graphics::TextAlignment::leading;
  style.maximumWidth = std::max(1.0, std::min(room.width, mostWidth) - 2 * padding);
  style.maximumLines = std::max(1, static_cast<int>(room.height / 3 / lineHeight));
  image_ = graphics::makeTextImage(text_, style, scale);
}

graphics::Rect AttributionNote::arrange(const graphics::Rect& room, const MapTheme& theme,
                                        double scale) {
  rect_ = {};
  if (text_.empty()) return rect_;
  drawImage(room.size, scale, theme);
  if (!image_) return rect_;
  rect_.size = {image_->size().width + 2 * padding, image_->size().height + 2 * padding};
  rect_.origin = {room.minX(), room.maxY() - rect_.size.height};
  return rect_;
}

void AttributionNote::draw(view::Canvas& canvas, const MapTheme& theme) const {
  if (!(rect_.size.width > 0)) return;
  graphics::Color ground = theme.colors.halo;
  ground.alpha = groundAlpha;
  canvas.fill(rect_, ground, cornerRadius);
  canvas.draw(image_, {{rect_.minX() + padding, rect_.minY() + padding}, image_->size()});
}

}  // namespace orivanta
