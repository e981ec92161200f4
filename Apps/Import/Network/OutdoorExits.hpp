// Where a network leads outdoors.
#pragma once

#include <cstddef>
#include <set>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/DisjointSets.hpp"

namespace orivanta::importer {

struct OutdoorExit {
  std::size_t node = 0;  ///< of the network; of a guessed exit, that from which it is reached
  Point position;
  bool isGuessed = false;
};

/// Whether a storey is at the height of the ground.
bool isOnGround(const Building& building, double level);

/// The entrances, the heads of stairs, and the ends of paths in the open, on the ground, in parts
/// of the network with places. Parts without any may get one where their way ends at the outside,
/// or else where it is nearest to the outside. `parts` are the parts of the network, and
/// `withPlaces` those with places.
std::vector<OutdoorExit> outdoorExits(const Building& building, DisjointSets& parts,
                                      const std::set<std::size_t>& withPlaces);

}  // namespace orivanta::importer
