// What the fills of a map distinguish.
#pragma once

#include <cstddef>

namespace orivanta {

/// What a place is for, as far as the color of its floor tells. `PlaceKind` is finer.
enum class FillKind {
  shop,         ///< what sells goods
  food,         ///< restaurants, cafés, bars
  room,         ///< rooms without another purpose, classrooms, waiting rooms
  office,       ///< offices
  service,      ///< banks, hairdressers, lockers, police
  information,  ///< information, cash machines
  toilet,       ///< toilets and showers
  care,         ///< first aid, doctors, pharmacies, nursing rooms
  transit,      ///< platforms, gates, ticket offices, stops, entrances and exits
  vertical,     ///< elevators, escalators, stairs and ramps
  parking,      ///< parking of cars and bicycles
  leisure,      ///< culture, libraries, sport
  green,        ///< gardens and terraces
  other         ///< everything else
};

/// The number of values of `FillKind`.
inline constexpr std::size_t fillKindCount = 14;

}  // namespace orivanta
