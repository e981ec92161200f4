// Where walls of rooms have something behind them, for doors that the source has not drawn.
#pragma once

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Geometry/Shapes.hpp"

namespace orivanta::importer {

/// How far behind a wall its other side is sought, in meters.
inline constexpr std::array wallDepths{0.06, 0.3, 0.6};

/// A straight piece of a room's wall behind which something lies.
struct WallContact {
  Point from;
  Point to;
  double length() const { return package::distance(from, to); }
};

/// The walls of a room, which is on their left; neighboring ones in the same direction are one.
std::vector<Segment> straightWalls(const Shape& shape);

/// Whether the thing that is sought lies at a point.
using Behind = std::function<bool(Point)>;

/// The longest straight piece of the walls behind which it lies everywhere; nothing if no door fits
/// into it.
std::optional<WallContact> longestContact(const Shape& room, const Behind& behind);

/// A door of a room in the middle of a piece of its walls.
Door guessedDoor(const Area& room, const WallContact& contact);

}  // namespace orivanta::importer
