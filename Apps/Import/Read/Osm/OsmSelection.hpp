// Chooses what to import of an extract: the buildings with indoor data, or one of them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"
#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// Keeps the things whose middle lies within the bounds, and buildings that are partly within.
void keepWithin(std::vector<OsmThing>& things, const Bounds& bounds);

/// Sets `OsmThing::building` of everything that lies in a building, or on its outline: an index
/// into the result plus one. The result has the indices of the buildings that have something
/// indoors. Of several buildings around a thing, the smallest counts.
/// Very many buildings that lie in each other take too long: then some things get none, with a
/// finding.
std::vector<std::size_t> assignBuildings(std::vector<OsmThing>& things, const std::string& file,
                                         Findings& findings);

/// Keeps what lies in the building, or the other named area, with this name, number (ref=*) or
/// identifier. Throws `SourceError` that names the buildings with indoor data if there is none.
void keepBuilding(std::vector<OsmThing>& things, const std::string& name, const std::string& file,
                  Findings& findings);

}  // namespace orivanta::importer
