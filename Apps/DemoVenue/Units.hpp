// Converts from the plan's meters to the venue's units, rounded so that the digits are the same on
// every platform.
#pragma once

#include <cmath>

namespace orivanta::demo {

inline constexpr double unitsPerMeter = 3.0;

/// A hundredth of a unit is 3 mm.
inline double rounded(double units) {
  const double value = std::round(units * 100.0) / 100.0;
  return value == 0.0 ? 0.0 : value;  // no negative zero
}

inline double toUnits(double meters) { return rounded(meters * unitsPerMeter); }

}  // namespace orivanta::demo
