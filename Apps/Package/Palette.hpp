// The colors of maps, by the kind of a place.
#pragma once

#include "Apps/Package/Color.hpp"

namespace orivanta::package {

/// What a place is for, as far as its color tells.
enum class PlaceKind {
  shop,
  food,
  room,
  office,
  service,
  information,  ///< also cash machines
  toilet,
  care,      ///< first aid, doctors, nursing
  transit,   ///< platforms, gates, ticket offices, stops
  vertical,  ///< elevators, stairs and the like
  parking,
  leisure,  ///< also culture
  green,
  other
};

/// The color of a place's floor. Any two differ by a CIEDE2000 distance of at least 10, for
/// deuteranopes and protanopes of at least 7. `other` is less distinct: it recedes.
Color fillOf(PlaceKind kind);

namespace palette {
inline constexpr Color walkable = color(0xFBFAF7);
inline constexpr Color slab = color(0xF4F2EE);
inline constexpr Color backdrop = color(0xE9EDF1);  ///< also what is open to the floor below
inline constexpr Color text = color(0x1B2230);
inline constexpr Color wall = color(0xB9BCC2);
inline constexpr Color route = color(0x1546B8);
inline constexpr Color pin = color(0xB3261E);
inline constexpr Color casing = color(0xFFFFFF);
}  // namespace palette

}  // namespace orivanta::package
