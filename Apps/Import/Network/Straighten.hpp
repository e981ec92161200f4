// Straight ways on lines that are complete.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

/// Adds lines where ways have long detours or turn back, moves and merges nodes where ways bend
/// needlessly, and leads all lines round obstacles.
void straightenWays(const Space& space, Ways& ways, Draft& draft);

}  // namespace orivanta::importer
