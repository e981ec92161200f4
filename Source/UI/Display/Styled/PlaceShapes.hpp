// Which shapes of floors belong to a place.
// Private header.
#pragma once

#include <set>
#include <string>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Closures.hpp"

namespace orivanta {

/// Returns the names of the shapes of a location or a connector, on all floors.
std::set<std::string> shapeNamesOf(const Location& place);

/// Returns the names of the shapes of all locations and connectors that are closed.
std::set<std::string> closedShapes(const Venue& venue, const guidance::Closures& closures);

}  // namespace orivanta
