// The walking edges of a venue, and what is near on foot.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::guidance {

/// Immutable; keeps a copy of the edges, and refers to the nodes by address only. Thread-safe.
class FootNetwork {
 public:
  /// A node that is near one of several starts.
  struct Reached {
    const Node* node = nullptr;
    double meters = 0.0;    ///< on foot, from the nearest start
    std::size_t start = 0;  ///< the index of that start
  };

  /// Copies the walking edges of a loaded venue. A venue without a graph has none.
  FootNetwork(const Venue& venue, double metersPerUnit);

  /// Returns the nodes within a distance on foot of any of the starts, each once with its nearest
  /// start, by ascending distance. Starts that are not nodes of the venue are ignored.
  std::vector<Reached> within(std::span<const Node* const> starts, double meters) const;

 private:
  struct Edge {
    std::uint32_t target;
    float meters;
  };

  std::vector<const Node*> nodes_;
  std::vector<std::size_t> firstEdges_;  // by node; one more than there are nodes
  std::vector<Edge> edges_;
  std::unordered_map<const Node*, std::uint32_t> indices_;
};

}  // namespace orivanta::guidance
