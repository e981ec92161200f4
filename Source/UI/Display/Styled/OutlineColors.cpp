#include "Source/UI/Display/Styled/OutlineColors.hpp"

#include <algorithm>
#include <cstddef>

#include "Source/UI/Style/ColorMeasures.hpp"

namespace orivanta {

namespace {

graphics::Color fillOf(OutlineSurface surface, const MapTheme& theme) {
  if (outlineSurface::isPlace(surface)) return theme.fill(static_cast<FillKind>(surface));
  if (surface == outlineSurface::walkable) return theme.colors.walkable;
  return surface == outlineSurface::slab ? theme.colors.slab : theme.colors.backdrop;
}

// The one of the outlines of two fills that differs more from the other fill.
graphics::Color faintOutline(const graphics::Color& first, const graphics::Color& second,
                             const MapTheme& theme) {
  const auto outlineOf = [&](const graphics::Color& fill) {
    return mixedToContrast(fill, theme.colors.outline, theme.walkableOutlineContrast);
  };
  const graphics::Color ofFirst = outlineOf(first);
  const graphics::Color ofSecond = outlineOf(second);
  return contrastOf(ofFirst, second) > contrastOf(ofSecond, first) ? ofFirst : ofSecond;
}

scene::RibbonColor colorBetween(OutlineSurface first, OutlineSurface second,
                                const MapTheme& theme) {
  if (!outlineSurface::isPlace(first) && !outlineSurface::isPlace(second))
    return {faintOutline(fillOf(first, theme), fillOf(second, theme), theme),
            static_cast<float>(theme.sizes.walkableOutline)};
  return {theme.outlineBetween(fillOf(first, theme), fillOf(second, theme)),
          static_cast<float>(theme.sizes.outline)};
}

}  // namespace

std::optional<OutlineSurface> outlineSurface::of(const ShapeRole& role) {
  switch (role.surface) {
    case ShapeRole::Surface::place:
      return static_cast<OutlineSurface>(role.kind);
    case ShapeRole::Surface::walkable:
      return walkable;
    case ShapeRole::Surface::slab:
      return slab;
    case ShapeRole::Surface::backdrop:
      return backdrop;
    case ShapeRole::Surface::wall:
    case ShapeRole::Surface::fixture:
      break;
  }
  return std::nullopt;
}

// The pairs in the order (0, 0), (0, 1), (1, 1), (0, 2), ...
std::uint8_t outlineIndex(OutlineSurface first, OutlineSurface second) {
  const auto [low, high] = std::minmax(first, second);
  return static_cast<std::uint8_t>(high * (high + 1) / 2 + low);
}

std::vector<scene::RibbonColor> outlineColors(const MapTheme& theme) {
  std::vector<scene::RibbonColor> colors;
  for (OutlineSurface high = 0; high < outlineSurface::count; ++high)
    for (OutlineSurface low = 0; low <= high; ++low)
      colors.push_back(colorBetween(low, high, theme));
  return colors;
}

}  // namespace orivanta
