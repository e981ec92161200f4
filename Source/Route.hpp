// The result of a route search.
#pragma once

#include <cstddef>

#include "Source/NodeList.hpp"

namespace orivanta {

/// The path that a search found, and its cost.
struct Route {
  NodeList path;           ///< start node first
  double cost;             ///< the cost of the search at the destination, in the graph's weights
  std::size_t takenNodes;  ///< nodes taken from the frontier, including the destination
};

}  // namespace orivanta
