// The parts of a route that lie on one floor each.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/NodeList.hpp"

namespace orivanta::command {

/// Consecutive nodes of a path on one floor.
struct RouteVisit {
  std::shared_ptr<Map> floor;
  std::size_t first;  ///< index into the path
  std::size_t last;   ///< the same, inclusive
};

/// The visits of a path in its order. A floor to which the path comes back has several. A floor
/// that the path only rides through has none: a visit has two nodes, or it is where the path begins
/// or ends. The path has at least one node.
std::vector<RouteVisit> visitsOf(const NodeList& path);

}  // namespace orivanta::command
