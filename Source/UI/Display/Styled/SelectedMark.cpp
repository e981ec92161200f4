#include "Source/UI/Display/Styled/SelectedMark.hpp"

#include <algorithm>
#include <array>
#include <string_view>

#include "Platform/Graphics/Drawing.hpp"
#include "Platform/Graphics/Text.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"
#include "Source/UI/Style/IconPaths.hpp"

namespace orivanta {

namespace {

using graphics::DrawingPart;
using graphics::Point;
using graphics::Rect;

// On a square around the origin. The tip is at the bottom, below the middle of the head.
constexpr double units = 48;
constexpr double tipBelowMiddle = 22;
constexpr double headAboveMiddle = 7;
constexpr std::array<std::string_view, 2> casing{"O0 -7 16",
                                                 "M-15 -1 C-11 9 -3 15 0 23 C3 15 11 9 15 -1 Z"};
constexpr std::array<std::string_view, 2> body{
    "O0 -7 14", "M-13 -1 C-9.5 8 -2.5 13.5 0 20 C2.5 13.5 9.5 8 13 -1 Z"};
constexpr std::string_view plainSymbol = "O0 0 4.5";

// In points.
constexpr double side = 46;  // of the square
constexpr double pinWidth = 31;
constexpr double symbolSide = 24;
constexpr double fontGrowth = 2;
constexpr double mostNameWidth = 190;
constexpr double gap = 2;
constexpr double edge = 6;
constexpr std::size_t sideCount = 4;  // below, right, left, above

constexpr double pointsPerUnit = side / units;

std::shared_ptr<const graphics::Image> symbolOf(PlaceKind kind, const MapTheme& theme,
                                                double scale) {
  std::vector<DrawingPart> parts;
  for (const IconPath& path : iconPathsOf(kind))
    parts.push_back(
        {path.path, path.isCut ? theme.colors.pin : theme.colors.casing, path.strokeWidth});
  if (parts.empty()) parts.push_back({plainSymbol, theme.colors.casing});
  return graphics::makeDrawingImage(parts, 24, symbolSide, scale);
}

}  // namespace

void SelectedMark::clear() {
  scale_ = 0;
  side_ = 0;
  hide();
}

void SelectedMark::drawImages(const SelectedPlace& place, const MapTheme& theme, double scale) {
  if (scale == scale_) return;
  scale_ = scale;
  std::vector<DrawingPart> parts;
  parts.reserve(casing.size() + body.size());
  for (const std::string_view path : casing) parts.push_back({path, theme.colors.casing});
  for (const std::string_view path : body) parts.push_back({path, theme.colors.pin});
  pin_ = graphics::makeDrawingImage(parts, units, side, scale);
  symbol_ = symbolOf(place.kind, theme, scale);
  graphics::TextStyle style = nameStyle(theme, theme.sizes.name + fontGrowth);
  style.bold = true;
  style.wholeLines = false;
  style.maximumWidth = mostNameWidth;
  style.maximumLines = 3;
  name_ = graphics::makeTextImage(place.name, style, scale);
}

Rect SelectedMark::nameAt(std::size_t index, Point tip) const {
  const graphics::Size size = name_->size();
  const double head = tip.y - (tipBelowMiddle + headAboveMiddle) * pointsPerUnit;
  switch (index) {
    case 1:
      return {{tip.x + pinWidth / 2 + gap, head - size.height / 2}, size};
    case 2:
      return {{tip.x - pinWidth / 2 - gap - size.width, head - size.height / 2}, size};
    case 3:
      return {{tip.x - size.width / 2, pinRect_.minY() - gap - size.height}, size};
    default:
      return {{tip.x - size.width / 2, tip.y + gap}, size};
  }
}

void SelectedMark::arrange(const SelectedPlace& place, Point tip, graphics::Size view,
                           std::span<const Rect> panels, const MapTheme& theme, double scale) {
  drawImages(place, theme, scale);
  const double middle = tip.y - tipBelowMiddle * pointsPerUnit;
  const double head = middle - headAboveMiddle * pointsPerUnit;
  pinRect_ = {{tip.x - side / 2, middle - side / 2}, {side, side}};
  symbolRect_ = {{tip.x - symbolSide / 2, head - symbolSide / 2}, {symbolSide, symbolSide}};
  rects_ = {{{tip.x - pinWidth / 2, pinRect_.minY()}, {pinWidth, tip.y - pinRect_.minY()}}};
  if (!name_) return;
  const auto isFree = [&](std::size_t index) {
    const Rect rect = nameAt(index, tip);
    return rect.minX() >= edge && rect.minY() >= edge && rect.maxX() <= view.width - edge &&
           rect.maxY() <= view.height - edge &&
           std::none_of(panels.begin(), panels.end(),
                        [&](const Rect& panel) { return panel.intersects(rect); });
  };
  for (std::size_t tried = 0; tried < sideCount && !isFree(side_); ++tried)
    side_ = (side_ + 1) % sideCount;
  rects_.push_back(nameAt(side_, tip));
}

void SelectedMark::draw(view::Canvas& canvas) const {
  if (rects_.empty()) return;
  canvas.draw(pin_, pinRect_);
  canvas.draw(symbol_, symbolRect_);
  if (rects_.size() > 1) canvas.draw(name_, rects_.back());
}

}  // namespace orivanta
