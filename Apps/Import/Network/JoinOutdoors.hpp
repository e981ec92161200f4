// Parts of a building that are joined only outdoors.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Joins parts of the network that have places with straight lines between exits at the height of
/// the ground floor, the shortest first, and reports each (`joined-outdoors`). Exits are entrances,
/// and stops of connectors around which nothing is drawn. The lines are at most 150 m long and
/// cross nothing that is drawn.
void joinOutdoors(Building& building, Findings& findings);

}  // namespace orivanta::importer
