// The colors of outlines by the surfaces on both sides.
// Private header.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "Platform/Scene/Ribbons.hpp"
#include "Source/UI/Display/Styled/ShapeRoles.hpp"

namespace orivanta {

/// A surface as outlines distinguish it: a kind of place, or what is not a place.
using OutlineSurface = std::uint8_t;

namespace outlineSurface {
inline constexpr OutlineSurface walkable = fillKindCount;
inline constexpr OutlineSurface slab = fillKindCount + 1;
inline constexpr OutlineSurface backdrop = fillKindCount + 2;
inline constexpr OutlineSurface count = fillKindCount + 3;

/// Returns the surface of shapes with a role, or nothing for walls and fixtures.
std::optional<OutlineSurface> of(const ShapeRole& role);

/// Whether it is the surface of a place.
constexpr bool isPlace(OutlineSurface surface) { return surface < fillKindCount; }
}  // namespace outlineSurface

/// Returns the color index of an edge between two surfaces, in any order.
std::uint8_t outlineIndex(OutlineSurface first, OutlineSurface second);

/// Returns the colors and the widths of all indices.
std::vector<scene::RibbonColor> outlineColors(const MapTheme& theme);

}  // namespace orivanta
