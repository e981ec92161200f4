#include "Source/UI/Display/Styled/RouteMarkImages.hpp"

#include <algorithm>
#include <array>
#include <string_view>

#include "Platform/Graphics/Drawing.hpp"
#include "Source/UI/Display/Styled/FloorLabels.hpp"
#include "Source/UI/Style/MapIcons.hpp"

namespace orivanta {

using graphics::DrawingPart;
using graphics::Image;

namespace {

using Form = RouteMark::Form;

// Shares of the width of the icons on the route.
constexpr double leastFontShare = 13.0 / 24;
constexpr double mostBadgeShare = 16.0 / 24;
constexpr double numberShare = 12.0 / 24;

constexpr double nameGrowth = 13.0 / 12;  // of the font size of the names of places
constexpr double pinUnits = 64;           // the side of the drawing of a pin
constexpr double dotUnits = 16;           // the side of the drawing of a dot

// A pin of 30 units with its tip at the origin.
constexpr std::string_view pinPath =
    "M 0 0 C -3 -6 -10.5 -11 -10.5 -19.5 C -10.5 -25.3 -5.8 -30 0 -30 C 5.8 -30 10.5 -25.3 10.5 "
    "-19.5 C 10.5 -11 3 -6 0 0 Z";

}  // namespace

bool isRoutePin(RouteMark::Form form) { return form == Form::stop || form == Form::end; }

// Texts of badges lie on the color of their icon, others on the map. Names grow with those of the
// map, texts of badges as far as the badges do.
graphics::TextStyle routeMarkTextStyle(const RouteMark& mark, const MapTheme& theme) {
  const double least = theme.sizes.selectedIcon * leastFontShare;
  double size = std::max(least, theme.sizes.name * nameGrowth);
  if (mark.form == Form::floorChange)
    size = std::min(size, theme.sizes.selectedIcon * mostBadgeShare);
  graphics::TextStyle style = nameStyle(theme, size);
  style.bold = true;
  style.wholeLines = false;
  if (mark.form != Form::floorChange) return style;
  style.color = theme.colors.iconSymbol;
  style.outlineWidth = 0;
  return style;
}

graphics::TextStyle routeMarkNumberStyle(const MapTheme& theme) {
  graphics::TextStyle style;
  style.fontFamily = theme.fontFamily;
  style.fontSize = theme.sizes.selectedIcon * numberShare;
  style.bold = true;
  style.color = theme.colors.iconSymbol;
  return style;
}

std::shared_ptr<const Image> makeRouteMarkSymbol(const RouteMark& mark, const MapTheme& theme,
                                                 double scale) {
  const MapPalette& colors = theme.colors;
  const double size = theme.sizes.selectedIcon;
  if (mark.form == Form::floorChange)
    return mark.place ? makeIconImage(mark.kind, theme, size, scale)
                      : makeWalkIconImage(theme, size, scale);
  if (mark.form == Form::start) {
    const std::array<DrawingPart, 2> dot{{{"O0 0 7.5", colors.casing}, {"O0 0 5.5", colors.start}}};
    return graphics::makeDrawingImage(dot, dotUnits, dotUnits * size * routeMarkShares::dot / 11,
                                      scale);
  }
  const graphics::Color body = mark.form == Form::stop ? colors.iconInfo : colors.pin;
  const std::array<DrawingPart, 3> pin{
      {{pinPath, colors.casing, 3}, {pinPath, body}, {"O0 -19.5 4", colors.casing}}};
  return graphics::makeDrawingImage(std::span(pin).first(mark.number.empty() ? 3 : 2), pinUnits,
                                    pinUnits * size * routeMarkShares::pin / 30, scale);
}

}  // namespace orivanta
