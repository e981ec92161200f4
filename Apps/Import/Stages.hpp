// The stages of an import, in order. Each takes the building that the stages before it have left,
// and adds findings.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// Makes all shapes valid: points that are not finite or too far away are dropped, near points are
/// merged, crossings are resolved, tiny areas are dropped. After it, polygons have the direction
/// that `Polygon` describes.
void repairShapes(Building& building, const Options& options, Findings& findings);

/// Decides which ordinals are storeys and which are landings, gives every storey its names, its
/// height and an identifier, and moves everything on a landing to the nearest storey. After it, all
/// levels are ordinals of `building.storeys`, which are ascending.
void arrangeStoreys(Building& building, const Options& options, Findings& findings);

/// Makes places of rooms that have none of their own, sorts the categories, checks the hours, and
/// drops places without an area or a spot.
void arrangePlaces(Building& building, const Options& options, Findings& findings);

/// Finds the areas that each door joins, and guesses doors for rooms without one.
void joinDoors(Building& building, const Options& options, Findings& findings);

/// Makes `building.connectors` from areas, lines, hints and links.
void makeConnectors(Building& building, const Options& options, Findings& findings);

/// Makes `building.network` from the source's own links or from the drawn areas.
void makeNetwork(Building& building, const Options& options, Findings& findings);

/// Joins the networks of neighboring storeys at one height: along the source's links, or else at
/// doors that lie on both and at entrances. Then joins parts of the building that only the way
/// outdoors joins.
void joinStoreys(Building& building, const Options& options, Findings& findings);

/// Reports what cannot be reached, rooms without doors and the like. Changes nothing.
void reviewBuilding(const Building& building, Findings& findings);

}  // namespace orivanta::importer
