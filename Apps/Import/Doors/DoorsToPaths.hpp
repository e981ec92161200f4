// Rooms beside paths that are drawn as lines: nothing is drawn between their walls and the path.
#pragma once

#include <optional>

#include "Apps/Import/Doors/WallContact.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// Whether a storey has paths that are drawn as lines.
bool hasPaths(const Building& building, double level);

/// Keeps references to its arguments: the space in which people walk on a storey, and its areas
/// without obstacles.
class DoorsToPaths {
 public:
  DoorsToPaths(const Space& space, const AreaIndex& contents)
      : space_(space), contents_(contents) {}

  /// A piece of a wall, as wide as a door, and the point of the space that is reached from it.
  struct Found {
    WallContact contact;
    Point target;
  };

  /// The place for a door in a room's walls from which the way to the space is shortest.
  std::optional<Found> from(const Area& room, const Shape& shape) const;

  /// The point of the space that is reached from a door of a room that lies beside it.
  std::optional<Point> from(const Area& room, const Door& door) const;

 private:
  bool isFree(const Area& room, Point from, Point to) const;

  const Space& space_;
  const AreaIndex& contents_;
};

/// The path from a door to the space in which people walk.
Line pathFrom(const Door& door, Point target);

}  // namespace orivanta::importer
