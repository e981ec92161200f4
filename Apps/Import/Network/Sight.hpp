// Whether two nodes of a draft can be joined by a straight line.
#pragma once

#include <cmath>

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// How far lines stay off borders, in meters, where no end lies in a border.
constexpr double sightClearance = 0.21;
/// How far nodes stay off borders.
constexpr double nodeClearance = 0.25;

/// Lets a node that lies in a border, or within `farthest` beside the space, see points beyond the
/// border. Returns false if the node is farther away.
inline bool placeBeside(const Space& space, DraftNode& node, double farthest) {
  constexpr double beyondWall = 0.3;
  node.slack = node.gap = 0.0;
  const auto wall = space.nearestWall(node.position, farthest);
  const bool inside = space.contains(node.position);
  if (!wall || (inside && wall->distance >= nodeClearance)) return inside;
  node.slack = wall->distance + beyondWall;
  node.gap = inside ? 0.0 : wall->distance;
  constexpr double thin = 0.01;
  node.inward =
      node.gap < thin ? wall->inward : (wall->position - node.position) * (1.0 / wall->distance);
  return true;
}

/// Whether a line from a node beside the space passes the opening at the node, not the wall beside
/// it.
inline bool passesOpening(const DraftNode& from, Point way) {
  constexpr double thin = 0.02;
  if (from.gap <= thin) return true;
  const double across = package::dot(way, from.inward);
  const double along = std::abs(package::cross(way, from.inward));
  constexpr double halfOpening = 0.4;
  return across > 0.0 && from.gap * along <= halfOpening * across;
}

/// Whether the line stays in the space. The parts within the slack of the nodes are not checked.
inline bool sees(const Space& space, const DraftNode& from, const DraftNode& to) {
  const Point way = to.position - from.position;
  const double length = package::length(way);
  if (length == 0.0) return true;
  if (!passesOpening(from, way) || !passesOpening(to, way * -1.0)) return false;
  if (length <= from.slack + to.slack) return true;
  const Point first = from.position + way * (from.slack / length);
  const Point last = to.position - way * (to.slack / length);
  if (from.slack == 0.0 && to.slack == 0.0) return space.isFree(first, last, 0.95 * sightClearance);
  constexpr double besideDoors = 0.05;
  return space.contains((first + last) * 0.5) && space.isFree(first, last, besideDoors);
}

}  // namespace orivanta::importer
