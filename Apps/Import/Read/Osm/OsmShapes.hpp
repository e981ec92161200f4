// Makes things on the map of nodes, ways and multipolygons.
#pragma once

#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Osm/OsmData.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// All things that may matter indoors: what is tagged as indoors, and the buildings, doors,
/// elevators, steps, footways and destinations that may turn out to be. Ordered by type and
/// identifier. Missing nodes and open rings are reported for what is tagged as indoors. The things
/// refer to the tags of `data`. Throws `SourceError` if they have more than twice
/// `limits.vertices` points.
std::vector<OsmThing> thingsOf(const OsmData& data, const Limits& limits, Findings& findings);

}  // namespace orivanta::importer
