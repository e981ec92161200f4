// Doors of rooms for which the source has none.
#pragma once

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Gives every room of a storey without a door one in the middle of the longest straight wall that
/// it has in common with a walkway. Rooms beside paths that are drawn as lines get one to
/// the nearest path, up to 8 m away, if nothing lies between, and a path to it. Other rooms then
/// get one to a neighbor that has a door. On the ground floor, rooms that touch nothing of both get
/// an entrance in their longest wall to the outside. Rooms that nobody may enter get none. The
/// doors are marked as guessed.
void guessDoors(Building& building, double level);

}  // namespace orivanta::importer
