// The navigation graph of a shopping mall of any size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "Source/NavigationGraph.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::benchmarks {

/// Floors with corridors in a grid, with missing crossings, shops next to the corridors, and shafts
/// of elevators and stairs that connect all floors.
struct Mall {
  NodeList nodes;  ///< not ordered by position
  std::shared_ptr<NavigationGraph> graph;
};

/// Returns a mall with about `nodeCount` nodes. `jitter` moves nodes off the grid by up to this
/// fraction of its width; with 0, many routes have equal costs. The result depends only on the
/// arguments.
Mall makeMall(std::size_t nodeCount, double jitter, std::uint32_t seed);

}  // namespace orivanta::benchmarks
