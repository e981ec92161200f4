// The colors of maps in packages: those of the built-in light theme.
#pragma once

#include "Apps/Package/Color.hpp"
#include "Source/UI/Style/Palette.hpp"

namespace orivanta::package {

/// What a place is for, as far as its color tells.
using PlaceKind = FillKind;

/// The color of a place's floor; see `MapPalette`.
Color fillOf(PlaceKind kind);

namespace detail {
// Exact multiples of 1/255, which floats are not.
constexpr Color exact(const graphics::Color& color) {
  // NOLINTNEXTLINE: lround is no constant expression
  const auto component = [](float value) { return static_cast<int>(value * 255 + 0.5F) / 255.0; };
  return {component(color.red), component(color.green), component(color.blue)};
}
}  // namespace detail

namespace palette {
inline constexpr Color walkable = detail::exact(lightPalette.walkable);
inline constexpr Color slab = detail::exact(lightPalette.slab);
inline constexpr Color backdrop = detail::exact(lightPalette.backdrop);
inline constexpr Color text = detail::exact(lightPalette.text);
inline constexpr Color wall = color(0xB9BCC2);
inline constexpr Color route = detail::exact(lightPalette.route);
inline constexpr Color pin = detail::exact(lightPalette.pin);
inline constexpr Color casing = detail::exact(lightPalette.casing);
}  // namespace palette

}  // namespace orivanta::package
