// Visits everything in a building that lies on a level, except the storeys themselves.
#pragma once

#include <algorithm>
#include <cstddef>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// A point of an area: the middle of the box around its outer rings. The origin if it has none.
Point middleOf(const Area& area);

/// Calls `visit(double& level, Point position)` for the level of each area, door, spot and node,
/// and for all levels of each line.
template <class Visit>
void forEachLevel(Building& building, const Visit& visit) {
  for (Area& area : building.areas) visit(area.level, middleOf(area));
  for (Door& door : building.doors) visit(door.level, door.position);
  for (Line& line : building.lines)
    for (double& level : line.levels)
      visit(level, line.points.empty() ? Point{} : line.points.front());
  for (Place& place : building.places)
    for (Spot& spot : place.spots) visit(spot.level, spot.position);
  for (ConnectorHint& hint : building.connectorHints)
    for (Spot& spot : hint.spots) visit(spot.level, spot.position);
  for (SourceNode& node : building.sourceNodes) visit(node.spot.level, node.spot.position);
}

/// Calls `visit` for the levels at the points of lines.
template <class Visit>
void forEachPointLevel(Building& building, const Visit& visit) {
  for (Line& line : building.lines)
    for (std::size_t i = 0; i < std::min(line.pointLevels.size(), line.points.size()); ++i)
      visit(line.pointLevels[i], line.points[i]);
}

}  // namespace orivanta::importer
