// Rounds lengths in the units of a venue, so that the digits are the same on every platform.
#pragma once

#include <cmath>

namespace orivanta::package {

/// Rounds to a hundredth of a unit. Returns no negative zero.
inline double roundedUnits(double units) {
  const double value = std::round(units * 100.0) / 100.0;
  return value == 0.0 ? 0.0 : value;
}

}  // namespace orivanta::package
