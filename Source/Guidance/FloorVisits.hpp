// The parts of a path that lie on one floor each, and the changes of floor between them.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Source/Fwd.hpp"
#include "Source/Guidance/Floors.hpp"
#include "Source/NodeList.hpp"

namespace orivanta {

/// Consecutive nodes of a path on one floor.
struct FloorVisit {
  std::shared_ptr<Map> floor;  ///< the floor
  std::size_t first;           ///< index into the path
  std::size_t last;            ///< index into the path, inclusive
};

/// The visits of a path, in its order. A floor that the path returns to has several visits. A floor
/// that the path only rides through has none: a visit has at least two nodes, or it is the
/// beginning or the end of the path. Empty for an empty path.
ORIVANTA_API std::vector<FloorVisit> floorVisits(const NodeList& path);

/// The floors of a path's nodes as the path passes them, those that it only rides through included.
/// A floor that the path returns to is listed again.
ORIVANTA_API FloorList floorsAlong(const NodeList& path);

/// Which way a change of floor leads.
enum class RideWay {
  up,    ///< to a higher floor
  down,  ///< to a lower floor
  level  ///< to a floor of the same elevation
};

/// The way from one floor to another, by their elevations.
ORIVANTA_API RideWay rideWay(const Map& from, const Map& to);

/// Neighboring steps of a path that all lead to another floor.
struct FloorChange {
  std::size_t begin;  ///< index into the path: the last node before the change
  std::size_t end;    ///< index into the path: the first node after it
};

/// The changes of floor of a path, in its order.
ORIVANTA_API std::vector<FloorChange> floorChanges(const NodeList& path);

/// A change of floor in a few characters, for marks on a map: an arrow (U+2191, U+2193 or U+2192)
/// and the label of the floor that it leads to, such as "↑ F1".
ORIVANTA_API std::string floorChangeMark(const Map& from, const Map& to);

}  // namespace orivanta
