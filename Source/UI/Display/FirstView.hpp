// Decides with which floor and which region a venue opens: where its places are.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"

namespace orivanta {

/// A place on a floor.
struct FirstViewPlace {
  std::size_t floor = 0;     ///< index of the floor
  graphics::Point position;  ///< scene units
  double weight = 1;         ///< see `firstViewWeight`
  double area = 0;           ///< square units; 0 if it has no area
};

/// A floor.
struct FirstViewFloor {
  double elevation = 0;        ///< in the venue's units; 0 is the ground
  std::size_t entrances = 0;   ///< number of entrances, exits and gates
  std::size_t connectors = 0;  ///< number of connectors that reach the floor
  graphics::Rect areas;        ///< contains all areas and places, scene units
};

/// The region of a floor that is shown first.
struct FirstRegion {
  graphics::Rect rect;   ///< scene units
  bool isWhole = false;  ///< it contains all areas of the floor
  double share = 0;      ///< of the weight of the floor's places, 0 to 1
};

/// Returns the weight of a place: 1, or a quarter if its name is generated; a quarter of that for
/// stops, parking, buildings and sports grounds (`isBackground`); half of that without an area.
ORIVANTA_API double firstViewWeight(bool isNameGenerated, bool isBackground, bool hasArea);

/// Returns the side of the median room of a floor: the median of the roots of the areas of its
/// places. Returns 0 if they have no areas.
ORIVANTA_API double medianRoom(std::size_t floor, std::span<const FirstViewPlace> places);

/// Returns the index of the floor to open with, or nothing if there are no floors. A floor's score
/// is the weight of its places (0.55), its entrances (0.2) and its connectors (0.15), each relative
/// to the floor that has most, and its nearness to the ground (0.1). Of the floors with at least 85
/// percent of the best score, the one nearest to the ground is returned, or the first of several.
/// Places of floors that do not exist are ignored. Any thread.
ORIVANTA_API std::optional<std::size_t> firstFloor(std::span<const FirstViewFloor> floors,
                                                   std::span<const FirstViewPlace> places);

/// Returns the smallest region, of the shape of the free view, with 90 percent of the weight of the
/// places on a floor. It is at least 60 meters long, and not so large that a meter has less than 3
/// points and the median room (the root of its area) less than 40; if there is no such region, it
/// is the one of this size with most weight. If all areas fit into 1.35 times the region, it is the
/// whole floor. Without a scale, the median room decides alone, and without rooms and scale, the
/// region is the whole floor.
///
/// `places` may contain places of other floors. `freeView` is the uncovered part of the view in
/// points. `unitsPerMeter` is nothing if the venue has no scale. Any thread.
ORIVANTA_API FirstRegion firstRegion(const FirstViewFloor& floor, std::size_t floorIndex,
                                     std::span<const FirstViewPlace> places,
                                     graphics::Size freeView, std::optional<double> unitsPerMeter);

}  // namespace orivanta
