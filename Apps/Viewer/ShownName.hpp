// The name of a place in the panels.
#pragma once

#include <string>

#include "Source/Fwd.hpp"

namespace orivanta::viewer {

/// Returns the name of a place or connector, see `labelName`. If that is empty, the name of its
/// first floor replaces it.
std::string shownName(const Venue& venue, const Location& place);

}  // namespace orivanta::viewer
