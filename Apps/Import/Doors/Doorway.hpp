// The opening of a door as an area.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// The direction of the wall in which a door is, of length 1: that of its line, otherwise that of
/// the nearest border of the given areas.
Point wallDirection(const Door& door, const std::vector<const Area*>& areas);

/// A rectangle as wide as the door that reaches `depth` to both sides of the wall. A door of
/// unknown width counts as 1 m wide, and none as narrower than 0.8 m.
Polygon doorway(const Door& door, Point wallDirection, double depth);

}  // namespace orivanta::importer
