// Which floors of a venue are stacked, and how far apart.
// Private header.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Guidance/Floors.hpp"

namespace orivanta {

/// The tilt at which stacked floors are seen, in radians: 58 degrees.
inline constexpr double stackTilt = 1.0122909661567112;

/// The largest number of floors in a stack.
inline constexpr std::size_t mostStackedFloors = 7;

/// A floor of a stack.
struct StackedFloor {
  std::shared_ptr<Map> floor;
  double offset = 0;       ///< scene units above the shown floor
  bool isWhole = true;     ///< otherwise only the slab and the connectors are drawn, faded
  std::size_t hidden = 0;  ///< number of floors between this one and the next that are left out
};

/// The floors of a stack, the lowest first.
struct StackedFloors {
  std::vector<StackedFloor> floors;
  std::size_t hiddenBelow = 0;  ///< number of floors below the first one that are left out
};

/// Returns the height that the upper of two floors must have above the lower one so that both are
/// recognizable, in scene units.
using FloorSpacing = std::function<double(const Map& lower, const Map& upper)>;

/// Stacks floors. At most seven are stacked: the shown one, those of the route, and those next to
/// them. With a route, the floors that it does not visit are not whole, unless shown, and need a
/// smaller spacing: 0.72 times if only one of two floors is whole, 0.42 times if none is. `floors`
/// need not be sorted, and contains `shown`. `onRoute` may be empty.
StackedFloors stackFloors(const FloorList& floors, const FloorList& onRoute,
                          const std::shared_ptr<Map>& shown, const FloorSpacing& spacing);

}  // namespace orivanta
