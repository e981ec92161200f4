// The scale of a venue.
// Private header.
#pragma once

#include <optional>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta::guidance {

/// Returns how many of the venue's units are a meter. Returns nothing if the venue does not state
/// a number between 1e-6 and 1e9.
ORIVANTA_API std::optional<double> unitsPerMeterOf(const Venue& venue);

}  // namespace orivanta::guidance
