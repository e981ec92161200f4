// What is near on foot.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// A node that is near one of several starts.
struct ReachedNode {
  const Node* node = nullptr;  ///< a node of the network
  double meters = 0.0;         ///< on foot, from the nearest start
  std::size_t start = 0;       ///< the index of that start
};

/// Returns the nodes within a distance on foot of any of the starts, each once with its nearest
/// start, by ascending distance. Starts that are not nodes of the network are ignored.
std::vector<ReachedNode> nodesOnFoot(const GuideNetwork& network,
                                     std::span<const Node* const> starts, double meters);

}  // namespace orivanta::guidance
