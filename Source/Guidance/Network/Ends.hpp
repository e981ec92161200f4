// A stop of a request in the network.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// A route may end at any of the vertices. A position is a vertex of its own, on one or two arcs.
struct Ends {
  using Index = GuideNetwork::Index;

  /// An arc on which the position lies.
  struct Split {
    Index arc;
    double share;  ///< 0 at the arc's origin, 1 at its target
  };

  std::vector<Index> vertices;        ///< without duplicates; `number` alone for a position
  std::vector<Split> splits;          ///< empty unless the stop is a position
  std::vector<Index> rooms;           ///< sorted; leaving these costs no penalty for a start here
  Index number = GuideNetwork::none;  ///< of a position: the network's size plus the stop's index
  std::shared_ptr<Node> node;         ///< of a position: a node made for it
};

/// A part of a path: an arc, or a part of one if an end is a position.
struct Hop {
  GuideNetwork::Index from;
  GuideNetwork::Index to;
  GuideNetwork::Index arc;
};

/// A path in the network.
struct NetworkPath {
  GuideNetwork::Index first = GuideNetwork::none;  ///< the first vertex
  std::vector<Hop> hops;
  std::int64_t cost = 0;  ///< in milliseconds

  GuideNetwork::Index last() const { return hops.empty() ? first : hops.back().to; }
};

}  // namespace orivanta::guidance
