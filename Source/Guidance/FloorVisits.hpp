// Splits a path into its parts on each floor and the floor changes between them.
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

/// Returns the visits of a path, in order. A floor to which the path returns has several visits. A
/// floor that the path only rides through has none: a visit has at least two nodes, or it is the
/// beginning or the end of the path. Returns an empty list if the path is empty.
ORIVANTA_API std::vector<FloorVisit> floorVisits(const NodeList& path);

/// Returns the floors of a path's nodes in path order, including floors that it only rides through.
/// A floor to which the path returns is listed again.
ORIVANTA_API FloorList floorsAlong(const NodeList& path);

/// The direction of a floor change.
enum class RideWay {
  up,    ///< to a higher floor
  down,  ///< to a lower floor
  level  ///< to a floor at the same elevation
};

/// Returns the direction from one floor to another, by their elevations.
ORIVANTA_API RideWay rideWay(const Map& from, const Map& to);

/// A floor change: consecutive steps of a path that each lead to another floor.
struct FloorChange {
  std::size_t begin;  ///< index into the path: the last node before the change
  std::size_t end;    ///< index into the path: the first node after it
};

/// Returns the floor changes of a path, in order.
ORIVANTA_API std::vector<FloorChange> floorChanges(const NodeList& path);

/// Returns a short text for a floor change, for marks on a map: an arrow (U+2191, U+2193 or U+2192)
/// and the label of the destination floor, such as "↑ F1".
ORIVANTA_API std::string floorChangeMark(const Map& from, const Map& to);

}  // namespace orivanta
