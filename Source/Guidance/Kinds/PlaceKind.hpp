// The kinds of places that a map distinguishes by icons and importance.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/Kinds/FillKind.hpp"

namespace orivanta {

/// What a place is. `KindWords` determines it.
enum class PlaceKind {
  lift,              ///< elevators
  escalator,         ///< escalators and moving walkways
  stairs,            ///< stairs
  ramp,              ///< ramps
  entrance,          ///< entrances, also those that serve as exits
  exit,              ///< exits, also emergency exits
  gate,              ///< ticket gates, boarding gates, controls
  ticket,            ///< ticket offices and machines, check-in
  platform,          ///< platforms of trains
  metro,             ///< trains, metro, tram
  bus,               ///< buses and other stops
  taxi,              ///< taxis
  parking,           ///< parking of cars
  bicycle,           ///< parking of bicycles
  information,       ///< information, reception, meeting points
  cash,              ///< cash machines
  lockers,           ///< lockers and baggage
  phone,             ///< telephones
  waiting,           ///< waiting rooms and seats
  smoking,           ///< smoking areas
  toilet,            ///< toilets for everybody, and showers
  toiletWomen,       ///< toilets for women
  toiletMen,         ///< toilets for men
  toiletWheelchair,  ///< accessible toilets
  nursing,           ///< rooms for nursing and changing babies
  firstAid,          ///< first aid, defibrillators
  health,            ///< doctors, pharmacies
  security,          ///< security, police
  food,              ///< restaurants, cafés, bars, bakeries
  shop,              ///< what sells goods
  service,           ///< banks, hairdressers, post, repairs
  culture,           ///< museums, cinemas, prayer rooms, play
  library,           ///< libraries
  sport,             ///< fitness and sport
  garden,            ///< gardens and terraces
  room,              ///< rooms without another purpose, classrooms
  office,            ///< offices
  other              ///< unknown
};

/// The number of values of `PlaceKind`.
inline constexpr std::size_t placeKindCount = 38;

/// Returns the name of the enumerator, such as "toiletWomen".
ORIVANTA_API std::string_view wordOf(PlaceKind kind);

/// Returns the kind with this name, or nothing if there is none.
ORIVANTA_API std::optional<PlaceKind> placeKindNamed(std::string_view word);

/// Returns the fill of places of a kind.
ORIVANTA_API FillKind fillKindOf(PlaceKind kind);

/// Returns the name of the enumerator, such as "vertical".
ORIVANTA_API std::string_view wordOf(FillKind kind);

/// Returns how important it is to show a place of a kind, from 30 (`other`) to 100 (`platform`).
ORIVANTA_API double importanceOf(PlaceKind kind);

}  // namespace orivanta
