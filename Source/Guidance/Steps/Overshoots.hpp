// Removes detours that a traveler does not walk: short ways to a node and back.
#pragma once

#include "Source/Guidance/Steps/WalkEnds.hpp"
#include "Source/Guidance/Steps/WalkLine.hpp"

namespace orivanta::guidance {

/// Networks often connect a place to a node beyond the point where its traveler joins the corridor,
/// so a path leads past that point and back. Straightens such parts: reversals of at least 120
/// degrees that lead at most 3 m back and forth, and near the ends of the walk those of at least
/// 150 degrees that lead at most 15 m, if the ways there and back are at most 4 m apart. The
/// ways through the entrances at the ends remain.
void removeOvershoots(WalkLine& line, const WalkEnds& ends);

}  // namespace orivanta::guidance
