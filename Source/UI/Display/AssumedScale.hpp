// The scale of venues that do not state one.
// Private header.
#pragma once

#include <vector>

namespace orivanta {

/// The assumed side of the median room, in meters.
inline constexpr double metersOfMedianRoom = 5.0;

/// Returns the assumed number of scene units per meter from the sides of the rooms in scene units:
/// the median room has `metersOfMedianRoom`. Returns 1 without rooms.
double assumedUnitsPerMeter(std::vector<double> sides);

}  // namespace orivanta
