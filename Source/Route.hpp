// What a route search finds.
// Public header.
#pragma once

#include <cstddef>

#include "Source/NodeList.hpp"

namespace orivanta {

/// What a search found, and what it took.
struct Route {
  NodeList path;           ///< start node first
  double cost;             ///< the search's cost at the goal, in the graph's weights
  std::size_t takenNodes;  ///< nodes taken from the frontier, the goal included
};

}  // namespace orivanta
