// Rooms that are drawn twice.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Reports every room of which at least nine tenths are also those of an earlier room on its storey
/// (`room-doubled`). The shapes must be valid.
void reportDoubledRooms(const Building& building, Findings& findings);

}  // namespace orivanta::importer
