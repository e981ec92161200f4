// The names of places and connectors on a map.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"

namespace orivanta {

/// Returns the name of a place or connector of a venue for a label. If no sign shows the name, for
/// example because a converter invented it, the name of the place's first category replaces it; for
/// a connector, the result is then empty. The venue must be loaded.
ORIVANTA_API std::string labelName(const Venue& venue, const Location& place);

}  // namespace orivanta
