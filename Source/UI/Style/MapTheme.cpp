#include "Source/UI/Style/MapTheme.hpp"

#include <algorithm>

#include "Source/UI/Style/ColorMeasures.hpp"

namespace orivanta {

using graphics::Color;

namespace {

constexpr double smallNamesBelow = 40.0;  // importance

// With high contrast.
constexpr double namesStandOut = 7.0;
constexpr double marksStandOut = 7.0;
constexpr double passedStandsOut = 4.5;
constexpr double outlinesStandOut = 4.5;
constexpr double walkableOutlinesStandOut = 3.0;
constexpr double roundingMargin = 0.05;  // colors are rounded when they are drawn
constexpr double widerOutline = 1.4;
constexpr double widerCasing = 1.35;
constexpr double widerHalo = 1.5;

// Returns a color mixed with `ink`, in linear light, until it has a contrast with `other`.
Color standingOut(const Color& color, const Color& other, const Color& ink, double contrast) {
  constexpr int steps = 64;
  for (int i = 0; i < steps; ++i) {
    const Color mixed = mixedInLight(color, ink, static_cast<double>(i) / steps);
    if (contrastOf(mixed, other) >= contrast + roundingMargin) return mixed;
  }
  return ink;
}

std::shared_ptr<const MapTheme> builtIn(bool dark) {
  auto theme = std::make_shared<MapTheme>();
  theme->name = dark ? "Dark" : "Light";
  theme->isDark = dark;
  theme->colors = dark ? darkPalette : lightPalette;
  theme->zoom = {{85, 0.5, 1.0}, {60, 1.2, 2.2}, {40, 2.2, 3.0}, {0, 3.2, 4.5}};
  return theme;
}

}  // namespace

std::shared_ptr<const MapTheme> MapTheme::light() {
  static const auto theme = builtIn(false);
  return theme;
}

std::shared_ptr<const MapTheme> MapTheme::dark() {
  static const auto theme = builtIn(true);
  return theme;
}

Color MapTheme::outline(const Color& fill) const {
  return mixedToContrast(fill, colors.outline, outlineContrast);
}

Color MapTheme::outlineBetween(const Color& first, const Color& second) const {
  const bool inkIsDark = luminanceOf(colors.outline) < luminanceOf(first);
  const bool firstIsDarker = luminanceOf(first) < luminanceOf(second);
  return outline(firstIsDarker == inkIsDark ? first : second);
}

Color MapTheme::walkableOutline() const {
  return mixedToContrast(colors.walkable, colors.outline, walkableOutlineContrast);
}

Color MapTheme::disc(PlaceKind kind) const {
  switch (kind) {
    case PlaceKind::lift:
    case PlaceKind::escalator:
    case PlaceKind::stairs:
    case PlaceKind::ramp:
      return colors.iconLift;
    case PlaceKind::entrance:
    case PlaceKind::exit:
      return colors.iconWay;
    case PlaceKind::gate:
    case PlaceKind::ticket:
      return colors.iconGate;
    case PlaceKind::firstAid:
    case PlaceKind::health:
      return colors.iconCare;
    case PlaceKind::information:
      return colors.iconInfo;
    default:
      return colors.iconOther;
  }
}

ZoomStep MapTheme::zoomStep(double importance) const {
  if (zoom.empty()) return {};
  const auto found = std::find_if(zoom.begin(), zoom.end(), [&](const ZoomStep& step) {
    return importance >= step.importance;
  });
  return found == zoom.end() ? zoom.back() : *found;
}

double MapTheme::nameSize(double importance) const {
  return importance < smallNamesBelow ? sizes.smallName : sizes.name;
}

MapTheme MapTheme::withHighContrast() const {
  MapTheme theme = *this;
  MapPalette& color = theme.colors;
  const Color ink = isDark ? graphics::colors::white : graphics::colors::black;
  const Color paper = isDark ? graphics::colors::black : graphics::colors::white;
  color.text = color.outline = ink;
  color.halo = color.casing = color.backdrop = paper;
  for (Color& fill : color.fills) fill = standingOut(fill, ink, paper, namesStandOut);
  for (Color* const floor : {&color.walkable, &color.slab})
    *floor = standingOut(*floor, ink, paper, namesStandOut);
  for (Color* const mark : {&color.route, &color.pin, &color.start})
    *mark = standingOut(*mark, paper, ink, marksStandOut);
  color.passed = standingOut(color.passed, paper, ink, passedStandsOut);
  const bool hasLightSymbols = luminanceOf(color.iconSymbol) > luminanceOf(color.iconOther);
  const Color ground = hasLightSymbols ? graphics::colors::black : graphics::colors::white;
  for (Color* const disc : {&color.iconLift, &color.iconWay, &color.iconGate, &color.iconCare,
                            &color.iconInfo, &color.iconOther, &color.iconOutOfOrder})
    *disc = standingOut(*disc, color.iconSymbol, ground, marksStandOut);
  theme.outlineContrast = std::max(outlineContrast, outlinesStandOut);
  theme.walkableOutlineContrast = std::max(walkableOutlineContrast, walkableOutlinesStandOut);
  theme.sizes.outline *= widerOutline;
  theme.sizes.walkableOutline *= widerOutline;
  theme.sizes.casing *= widerCasing;
  theme.sizes.halo *= widerHalo;
  return theme;
}

MapTheme MapTheme::withTextScale(double factor) const {
  MapTheme theme = *this;
  MapSizes& size = theme.sizes;
  for (double* const text : {&size.name, &size.smallName, &size.halo}) *text *= factor;
  for (double* const other : {&size.icon, &size.selectedIcon, &size.route, &size.casing})
    *other *= (1 + factor) / 2;
  return theme;
}

}  // namespace orivanta
