// Where the walkable space of a storey ends outdoors.
#pragma once

#include <optional>

#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// The nearest point of a border in sight, at most 4 m away, behind which nothing is drawn.
std::optional<Point> outerBorder(const Space& space, const AreaIndex& areas, Point from);

}  // namespace orivanta::importer
