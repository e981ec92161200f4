// Ways into a tip and back.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Adds lines of at most 15 m that cut turns of more than 127 degrees off, where ways between
/// doors, connectors and places use them and become at least 1 m shorter.
void cutSharpTurns(const Space& space, Draft& draft);

}  // namespace orivanta::importer
