// What tags tell about a destination.
#pragma once

#include <string>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// Sets all members of the place except its areas and spots.
void describePlace(const OsmThing& thing, const std::string& id, Place& place);

}  // namespace orivanta::importer
