// The walking network that a source has itself.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Geometry/SegmentGrid.hpp"
#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/Rooms.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// Whether the network of a storey is that of the source.
bool usesSourceLines(const Building& building, double level, NetworkChoice choice);

/// The nodes of a source's network in a draft.
class SourceLines {
 public:
  /// Adds the links between nodes of one storey, apart from those that a connector stands for.
  SourceLines(const Building& building, double level, Draft& draft);

  /// Makes nodes of the source the inner nodes of the rooms in which they lie, and returns the
  /// identifiers of the rooms. Of several nodes in a room, takes the one farthest from its walls. A
  /// node at one of the room's doors is none: routes would end at the door. `doors` are those of
  /// the storey.
  std::set<std::string> claimInsides(const std::vector<const Door*>& doors, Rooms& rooms,
                                     Draft& draft) const;

  /// The nearest node within a distance.
  std::optional<std::uint32_t> nodeAt(Point point, double within) const;

  /// The nearest node within a distance that is only a point of the way.
  std::optional<std::uint32_t> freeNodeAt(const Draft& draft, Point point, double within) const;

 private:
  // In the order of the points of the grid.
  std::vector<std::uint32_t> indices_;  // in the draft
  std::unique_ptr<SegmentGrid> grid_;
};

}  // namespace orivanta::importer
