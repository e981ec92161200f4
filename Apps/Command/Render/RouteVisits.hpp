// The names under which the drawing of routes knows the visits of a path.
#pragma once

#include <vector>

#include "Source/Guidance/FloorVisits.hpp"

namespace orivanta::command {

using RouteVisit = FloorVisit;

inline std::vector<RouteVisit> visitsOf(const NodeList& path) { return floorVisits(path); }

}  // namespace orivanta::command
