// The levels of lines without levels of their own: those of what they touch.
#pragma once

#include <string>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"
#include "Apps/Import/Read/Osm/OsmTouching.hpp"

namespace orivanta::importer {

/// Whether the thing has no level of its own, or is a flight with one level, and may get levels
/// from others.
bool mayFollow(const OsmThing& thing);

/// Whether it is a line without a level that is surely one of a building.
bool isLostLine(const OsmThing& thing);

/// Gives lines the levels of what they touch. Indoor paths of which nothing is known but that an
/// elevator leads there are taken to be on the ground floor and reported (`level-missing`).
void followLines(std::vector<OsmThing>& things, const OsmTouching& touching,
                 const std::string& file, Findings& findings);

}  // namespace orivanta::importer
