// Needless bends of lines.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Moves nodes by at most a few meters so that the lines through them bend less. A node moves only
/// if all lines at it stay in sight and it comes no nearer to a wall than 1 m, or than it was.
/// Sharp turns stay.
void smoothBends(const Space& space, Draft& draft);

}  // namespace orivanta::importer
