// Rooms beside each other.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "Apps/Import/Doors/WallContact.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

/// Keeps references to its arguments: the rooms of a storey, and its areas without obstacles.
class RoomNeighbors {
 public:
  RoomNeighbors(const AreaIndex& rooms, const AreaIndex& contents)
      : rooms_(rooms), contents_(contents) {}

  /// A room beside another one, and the longest straight wall that they have in common.
  struct Neighbor {
    std::string id;
    WallContact contact;
  };

  /// The neighbors of a room, which are computed once.
  const std::vector<Neighbor>& of(const Area& room);

 private:
  const Space& openSpaceOf(const Area& room);

  const AreaIndex& rooms_;
  const AreaIndex& contents_;
  std::map<const Area*, std::unique_ptr<const Space>> openSpaces_;
  std::map<const Area*, std::vector<Neighbor>> neighbors_;
};

}  // namespace orivanta::importer
