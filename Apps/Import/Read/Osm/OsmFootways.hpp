// Finds the footways outdoors that join the buildings of a site.
#pragma once

#include <vector>

#include "Apps/Import/Read/Osm/OsmThing.hpp"
#include "Apps/Import/Read/Osm/OsmTouching.hpp"

namespace orivanta::importer {

/// Puts footways and steps without a level on level 0 if they lie among the drawn areas, at least
/// in part, and lead from one entrance, or one thing on level 0, to another.
void takeFootways(std::vector<OsmThing>& things, const OsmTouching& touching);

}  // namespace orivanta::importer
