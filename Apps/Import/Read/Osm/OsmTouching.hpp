// An index of the things on the map by the positions of their points and corners. Things that touch
// have equal positions, whether or not they share nodes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <vector>

#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// Which things have a corner or a point at a position.
class OsmTouching {
 public:
  /// `things` must outlive the index.
  explicit OsmTouching(const std::vector<OsmThing>& things);

  /// Calls `use(thing, isStraight)` for each thing, in their order; for at most 1,000. Whether the
  /// outline of an area goes straight on there tells doors from corners.
  template <class Use>
  void forEachAt(OsmPosition position, const Use& use) const {
    constexpr int most = 1000;
    auto at = std::lower_bound(corners_.begin(), corners_.end(), Corner{position, 0, false});
    for (int i = 0; i < most && at != corners_.end() && at->position == position; ++i, ++at)
      use(things_[at->thing], at->isStraight);
  }

  /// The levels of the things there that are on only one.
  std::set<double> levelsAt(OsmPosition position) const;

 private:
  struct Corner {
    OsmPosition position;
    std::uint32_t thing = 0;
    bool isStraight = false;

    friend auto operator<=>(const Corner&, const Corner&) = default;  // NOLINT: no pointer
  };

  void addRing(const OsmRing& ring, std::uint32_t thing);

  const std::vector<OsmThing>& things_;
  std::vector<Corner> corners_;
};

}  // namespace orivanta::importer
