// The cheapest path through several stops in a given order.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Source/Guidance/Network/NetworkSearch.hpp"

namespace orivanta::guidance {

/// Finds the cheapest path through the stops in this order: each part begins where the one before
/// ends. Returns nothing if there is none; then `*failed` is the index of the first stop in the
/// list that cannot be reached.
std::optional<std::vector<NetworkPath>> cheapestSequence(const SearchContext& context,
                                                         const CostTable& costs,
                                                         const std::vector<const Ends*>& stops,
                                                         std::size_t stopCount,
                                                         std::size_t* failed);

}  // namespace orivanta::guidance
