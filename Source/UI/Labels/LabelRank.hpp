// How important a label is.
#pragma once

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// Returns the rank of a label; labels of higher ranks are placed first. `kindRank` is the rank of
/// its kind of place, 0 to 100. A larger area adds up to 14: 3.5 for each doubling beyond 30 square
/// meters. `area` is in square meters, or 0 if the place has no area or the scale is unknown. A
/// name that was generated subtracts 26.
ORIVANTA_API double labelRank(double kindRank, double area, bool isNameGenerated);

/// The icons of labels from this rank on are placed before any name.
inline constexpr double leastLeadingRank = 85;

}  // namespace orivanta
