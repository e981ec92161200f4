// The keys of messages for the values of a step, and the names that may be spoken.
#pragma once

#include <string>

#include "Source/Guidance/Step.hpp"

namespace orivanta::guidance {

/// Returns the name of a place, or an empty text if it is null, has no name or has a name that a
/// converter invented (`nameGenerated`).
std::string spokenName(const Location* place);

/// Returns the part of a message's key for a side: empty if the side is not known, or else a dot
/// and the name of the side.
std::string sideKey(Side side);

}  // namespace orivanta::guidance
