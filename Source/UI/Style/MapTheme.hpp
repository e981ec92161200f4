// The look of styled maps: colors, sizes, fonts, and what is shown from which zoom on.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Source/Guidance/Kinds/KindWords.hpp"
#include "Source/Guidance/Kinds/PlaceKind.hpp"
#include "Source/UI/Style/Palette.hpp"

namespace orivanta {

/// From which zoom on places of some importance are shown.
struct ZoomStep {
  double importance = 0.0;  ///< the least importance to which the step applies; see `importanceOf`
  double iconFrom = 0.0;    ///< least points per meter at which icons are shown
  double nameFrom = 0.0;    ///< least points per meter at which names are shown

  friend bool operator==(const ZoomStep&, const ZoomStep&) = default;
};

/// The lengths of a theme in points.
struct MapSizes {
  double name = 12.0;             ///< font size of names
  double smallName = 11.0;        ///< font size of names of places with an importance below 40
  double halo = 1.5;              ///< width of the halo around names
  double outline = 1.6;           ///< width of outlines
  double walkableOutline = 1.25;  ///< width of outlines of walkable areas
  double icon = 16.0;             ///< diameter of icons
  double selectedIcon = 24.0;     ///< diameter of icons that are selected or on the route
  double route = 6.0;             ///< width of the route
  double casing = 1.5;            ///< width of the casing on each side of the route

  friend bool operator==(const MapSizes&, const MapSizes&) = default;
};

/// The look of a map. A value: copy it and change its fields. Many views can share one theme, which
/// is constant then: `std::shared_ptr<const MapTheme>`.
struct ORIVANTA_API MapTheme {
  std::string name;                      ///< for users
  bool isDark = false;                   ///< whether it derives from the dark theme
  MapPalette colors = lightPalette;      ///< all colors
  double outlineContrast = 2.05;         ///< of outlines with their fills
  double walkableOutlineContrast = 1.3;  ///< of outlines of walkable areas with their fills
  std::string fontFamily = "Sans";       ///< a family or an alias of Fontconfig
  MapSizes sizes;                        ///< all lengths
  std::vector<ZoomStep> zoom;            ///< by descending importance; the last one is for the rest
  KindWords words;                       ///< determine the kinds of places

  /// Returns the built-in light theme. The same object each time; thread-safe.
  static std::shared_ptr<const MapTheme> light();

  /// Returns the built-in dark theme. The same object each time; thread-safe.
  static std::shared_ptr<const MapTheme> dark();

  /// Returns the color of the floors of places.
  graphics::Color fill(FillKind kind) const { return fillOf(colors, kind); }

  /// Returns the color of the outline of an area with a fill.
  graphics::Color outline(const graphics::Color& fill) const;

  /// Returns the color of an edge that two areas share: the outline of the darker fill, in dark
  /// themes of the lighter one. It has at least the contrast of an outline with both fills.
  graphics::Color outlineBetween(const graphics::Color& first, const graphics::Color& second) const;

  /// Returns the color of the outline of a walkable area.
  graphics::Color walkableOutline() const;

  /// Returns the color of the disc of an icon.
  graphics::Color disc(PlaceKind kind) const;

  /// Returns the step for an importance. If `zoom` is empty, everything is always shown.
  ZoomStep zoomStep(double importance) const;

  /// Returns the font size of the name of a place with an importance.
  double nameSize(double importance) const;

  /// Returns a copy whose texts are larger by a factor, for visitors who need large texts or look
  /// from further away. Icons and routes grow half as much.
  MapTheme withTextScale(double factor) const;

  /// Returns a copy with high contrast: black names with a white halo, or, if the theme is dark,
  /// the reverse. Names have a contrast of at least 7 with all fills, outlines of at least 4.5 and
  /// outlines of walkable areas of at least 3. Routes, marks and discs of icons have one of at
  /// least 7 with what surrounds them, passed routes of at least 4.5. Outlines, the halo and the
  /// casing are wider. Fills keep their hues but become more alike.
  MapTheme withHighContrast() const;
};

}  // namespace orivanta
