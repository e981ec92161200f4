// The cheapest path through several stops in a given order.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "Source/Guidance/Network/NetworkSearch.hpp"

namespace orivanta::guidance {

/// Decides whether a route may arrive at a node of a stop.
struct Arrivals {
  double metersPerSecond;
  /// Called with the index of the stop in the list, the node, and the seconds since the departure.
  std::function<bool(std::size_t, GuideNetwork::Index, double)> accepts;
};

/// Finds the cheapest path through the stops in this order: each part begins where the one before
/// ends. `arrivals` may be null; then all are accepted. Returns nothing if there is no path; then
/// `*failed` is the index of the first stop in the list that cannot be reached.
std::optional<std::vector<NetworkPath>> cheapestSequence(
    const SearchContext& context, const CostTable& costs, const std::vector<const Ends*>& stops,
    std::size_t stopCount, const Arrivals* arrivals, std::size_t* failed);

}  // namespace orivanta::guidance
