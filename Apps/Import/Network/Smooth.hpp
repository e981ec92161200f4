// Needless bends of lines.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Moves nodes by a few meters so that ways turn less, and less often. What many ways use counts
/// more. Ways become hardly shorter: a zigzag becomes straight or a single turn, but a turn is not
/// cut off. A node moves only if all lines at it stay in sight and it comes no nearer to a wall
/// than 1 m, or than it was.
void smoothBends(const Space& space, Draft& draft);

}  // namespace orivanta::importer
