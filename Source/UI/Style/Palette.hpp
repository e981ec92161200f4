// The colors of the built-in map themes. Programs that write maps use them as well.
#pragma once

#include <array>
#include <cstddef>

#include "Platform/Graphics/Color.hpp"
#include "Source/Guidance/Kinds/FillKind.hpp"

namespace orivanta {

/// Returns the color 0xRRGGBB.
constexpr graphics::Color colorOfHex(unsigned hex) {
  return {static_cast<float>(hex >> 16U & 0xFFU) / 255.0F,
          static_cast<float>(hex >> 8U & 0xFFU) / 255.0F, static_cast<float>(hex & 0xFFU) / 255.0F};
}

/// The colors of a map. Any two fills, the walkable floor included, have a CIEDE2000 distance of at
/// least 10, and of at least 7 as deuteranopes and protanopes see them. `FillKind::other` recedes:
/// at least 5.
struct MapPalette {
  std::array<graphics::Color, fillKindCount> fills{};  ///< in the order of `FillKind`
  graphics::Color walkable;  ///< corridors, squares and everything else that people walk on
  graphics::Color slab;      ///< the floor below everything
  graphics::Color backdrop;  ///< around the floor, and what is open to the floor below
  graphics::Color text;      ///< names
  graphics::Color halo;      ///< around names
  graphics::Color outline;   ///< what fills are mixed with to draw their outlines
  graphics::Color route;     ///< the route ahead
  graphics::Color casing;    ///< on both sides of the route, and around pins
  graphics::Color passed;    ///< the part of the route that has been walked
  graphics::Color pin;       ///< the destination and the selected place
  graphics::Color start;     ///< where the route starts
  /// The symbol and the ring of an icon.
  graphics::Color iconSymbol = colorOfHex(0xFFFFFF);
  /// Disc of an icon: elevators, escalators, stairs, ramps.
  graphics::Color iconLift = colorOfHex(0x3B4A9B);
  /// Disc of an icon: entrances and exits.
  graphics::Color iconWay = colorOfHex(0x0B6B3A);
  /// Disc of an icon: gates and tickets.
  graphics::Color iconGate = colorOfHex(0x5A4A00);
  /// Disc of an icon: first aid and health.
  graphics::Color iconCare = colorOfHex(0xA3172B);
  /// Disc of an icon: information, and the visitor's position.
  graphics::Color iconInfo = colorOfHex(0x1546B8);
  /// Disc of an icon: every other kind.
  graphics::Color iconOther = colorOfHex(0x3F4956);
  /// Disc of an icon whose place is out of order.
  graphics::Color iconOutOfOrder = colorOfHex(0x6B7280);
};

/// The palette of the light theme.
inline constexpr MapPalette lightPalette{
    {colorOfHex(0xEFE5C3), colorOfHex(0xE1A375), colorOfHex(0xDCCFC8), colorOfHex(0xBFCBD8),
     colorOfHex(0xDDCFFD), colorOfHex(0x8AB3D4), colorOfHex(0xCAF2FB), colorOfHex(0xE8A2BC),
     colorOfHex(0xCEDD94), colorOfHex(0x8395C6), colorOfHex(0xB0B9FF), colorOfHex(0x62C1B8),
     colorOfHex(0x9DBA9A), colorOfHex(0xD5D8DB)},
    colorOfHex(0xFBFAF7),
    colorOfHex(0xF4F2EE),
    colorOfHex(0xE9EDF1),
    colorOfHex(0x1B2230),
    colorOfHex(0xFFFFFF),
    colorOfHex(0x1B2230),
    colorOfHex(0x1546B8),
    colorOfHex(0xFFFFFF),
    colorOfHex(0x7E8794),
    colorOfHex(0xB3261E),
    colorOfHex(0x14694A),
};

/// The palette of the dark theme.
inline constexpr MapPalette darkPalette{
    {colorOfHex(0x624F20), colorOfHex(0x865F4E), colorOfHex(0x584E48), colorOfHex(0x1F3749),
     colorOfHex(0x382B67), colorOfHex(0x206EAD), colorOfHex(0x2B4E52), colorOfHex(0x99566A),
     colorOfHex(0x6B6F27), colorOfHex(0x686686), colorOfHex(0x344F8D), colorOfHex(0x02786C),
     colorOfHex(0x273A19), colorOfHex(0x33322D)},
    colorOfHex(0x222426),
    colorOfHex(0x181A1D),
    colorOfHex(0x0B0E12),
    colorOfHex(0xF3F5F8),
    colorOfHex(0x0B0E12),
    colorOfHex(0xFFFFFF),
    colorOfHex(0x7FB2FF),
    colorOfHex(0x0B0E12),
    colorOfHex(0x8A93A1),
    colorOfHex(0xFF8A80),
    colorOfHex(0x5ED6A0),
};

/// Returns the fill of a kind.
constexpr graphics::Color fillOf(const MapPalette& palette, FillKind kind) {
  return palette.fills[static_cast<std::size_t>(kind)];
}

}  // namespace orivanta
