// Whether two nodes of a draft can be joined by a straight line.
#pragma once

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// How far lines stay off borders, in meters, where no end lies in a border.
constexpr double sightClearance = 0.21;
/// How far nodes stay off borders.
constexpr double nodeClearance = 0.25;

/// Whether the line stays in the space. The parts within the slack of the nodes are not checked.
inline bool sees(const Space& space, const DraftNode& from, const DraftNode& to) {
  const Point way = to.position - from.position;
  const double length = package::length(way);
  if (length <= from.slack + to.slack || length == 0.0) return true;
  const Point first = from.position + way * (from.slack / length);
  const Point last = to.position - way * (to.slack / length);
  if (from.slack == 0.0 && to.slack == 0.0) return space.isFree(first, last, 0.95 * sightClearance);
  constexpr double besideDoors = 0.05;
  return space.contains((first + last) * 0.5) && space.isFree(first, last, besideDoors);
}

}  // namespace orivanta::importer
