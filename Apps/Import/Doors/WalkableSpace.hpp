// The space of a storey in which people walk without passing a door.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// Whether people walk in areas of this kind. Areas of unknown use count as walkways on storeys
/// without walkways and without paths; see `hasWalkways`.
bool isWalkway(AreaKind kind, bool storeyHasWalkways);

/// Whether people walk in an area: its kind is such, and it is not closed to everybody.
bool isWalked(const Area& area, bool storeyHasWalkways);

/// Whether an area is a room, and not closed to everybody. Areas of unknown use count as rooms on
/// storeys with walkways.
bool isEnterableRoom(const Area& area, bool storeyHasWalkways);

/// Whether a storey has walkways, ramps or paths.
bool hasWalkways(const Building& building, double level);

/// Whether a storey has rooms and an outline, but nothing to walk on: then what is between its
/// rooms serves as walkway.
bool walksBetweenRooms(const Building& building, double level);

/// The walkways, ramps and paths of a storey, or else what is between its rooms, without its rooms,
/// connectors, openings, obstacles, walls and everything that nobody may enter. Gaps of less than 8
/// cm between walkways are closed. Two walkways with doors on their common border are separated by
/// it, except at doors that are at least 2 m wide. Taken from `Building::walkableSpaces` if it is
/// there.
Shape walkableSpace(const Building& building, double level);

}  // namespace orivanta::importer
