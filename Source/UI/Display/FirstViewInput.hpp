// What the first view needs to know about a venue: its places, where they are and how large.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/UI/Display/FirstView.hpp"

namespace orivanta {

/// What a place means for the first view.
enum class FirstViewRole {
  place,      ///< counts fully
  entrance,   ///< counts fully, and as an entrance of its floor
  background  ///< a stop, parking, a building or a sports ground; counts little
};

/// Returns the role of a place.
using RoleOfPlace = std::function<FirstViewRole(const Location&)>;

/// The contents of a venue, as the functions of `FirstView` expect them.
struct FirstViewInput {
  std::vector<FirstViewFloor> floors;   ///< in the order of the venue's maps
  std::vector<FirstViewPlace> places;   ///< one for each floor of each location
  std::optional<double> unitsPerMeter;  ///< nothing if the venue does not state its scale
};

/// Returns the contents of a loaded venue. Places of floors whose model is loaded have areas, and
/// are at the middle of their largest area; the others are at the middle of their nodes. If
/// `roleOf` is empty, all places count fully. Main thread.
ORIVANTA_API FirstViewInput firstViewInput(const Venue& venue, const RoleOfPlace& roleOf = {});

}  // namespace orivanta
