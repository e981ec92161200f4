// The drawn parts of connectors, and where they meet the space in which people walk.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/OrientedBox.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// A part of a connector on one storey: a drawn area, several that continue each other, or a point.
struct Piece {
  const Area* area = nullptr;  ///< the first one; null for a point
  Shape shape;                 ///< of all of them; empty for a point
  ConnectorKind kind = ConnectorKind::stairs;
  double level = 0.0;
  OrientedBox box;  ///< of the largest polygon of an area, of several areas, or of the point
  std::string source;
  Names names;
  Access access = Access::everybody;
  Wheelchair wheelchair = Wheelchair::unknown;
  Direction direction = Direction::unknown;     ///< forward is upward
  std::vector<std::array<Point, 2>> stepEdges;  ///< of all areas
};

/// A side of the box of a piece: the short ones are `start` and `end`.
enum class Side { start, end, left, right };

inline bool isShort(Side side) { return side == Side::start || side == Side::end; }
Side opposite(Side side);

/// A part of the border where a piece can be boarded.
struct Contact {
  Side side = Side::start;
  Point position;  ///< on the border
  double length = 0.0;
  bool door = false;   ///< a door or an opening that the source has drawn
  bool leaf = false;   ///< it can be shut
  bool steps = false;  ///< the edges of steps are drawn at this side
};

/// The piece of an area; nothing for areas that are no connectors.
std::optional<Piece> pieceOf(const Area& area);

/// Whether two flights on one storey are parts of one: one begins where the other ends, in the same
/// direction.
bool continues(const Piece& first, const Piece& second);

/// Adds the area of a flight that continues another one.
void append(Piece& piece, const Piece& other);

/// Where the piece meets a space, at most one contact for each side. Gaps of up to 0.6 m between
/// them do not matter. Empty for points.
std::vector<Contact> contactsOf(const Piece& piece, const Space& space);

/// The share of the piece that lies in a space, from 0 to 1.
double shareWithin(const Piece& piece, const Space& space);

/// The contact made of a door of the piece.
Contact contactAt(const Piece& piece, const Door& door);

/// The point of the piece that is nearest to a space, for pieces without contact.
Point nearestTo(const Piece& piece, const Space& space);

}  // namespace orivanta::importer
