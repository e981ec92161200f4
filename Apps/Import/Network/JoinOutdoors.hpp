// Parts of a building that are joined only outdoors.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Joins parts of the network that have places with straight lines between exits at the height of
/// the ground floor, the shortest first, and reports each (`joined-outdoors`). Exits are entrances,
/// stops of connectors around which nothing is drawn, and ends of paths where nothing is drawn; a
/// part without any gets an entrance where its way ends at the outside. The lines are at most 150 m
/// long and cross nothing that is drawn. Parts that no line joins are joined round corners. Then
/// adds lines between exits of different parts where the way is a detour.
void joinOutdoors(Building& building, Findings& findings);

}  // namespace orivanta::importer
