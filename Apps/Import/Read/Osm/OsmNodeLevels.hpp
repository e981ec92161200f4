// The levels of nodes that state none.
#pragma once

#include "Apps/Import/Read/Osm/OsmThing.hpp"
#include "Apps/Import/Read/Osm/OsmTouching.hpp"

namespace orivanta::importer {

/// Sets the levels of a node to those of the areas and lines on which it lies. Entrances and
/// destinations that lie on none are on level 0.
void takeNodeLevels(OsmThing& thing, const OsmTouching& touching);

}  // namespace orivanta::importer
