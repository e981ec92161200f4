// Converts from the plan's meters to the units of the demo venue.
#pragma once

#include "Apps/Package/Units.hpp"

namespace orivanta::demo {

inline constexpr double unitsPerMeter = 3.0;

inline double toUnits(double meters) { return package::roundedUnits(meters * unitsPerMeter); }

}  // namespace orivanta::demo
