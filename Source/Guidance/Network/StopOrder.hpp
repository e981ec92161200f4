// The cheapest order of the stops of a route.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Source/Guidance/Network/NetworkSearch.hpp"

namespace orivanta::guidance {

/// Returns the cheapest order of the stops: indexes, with the first and the last stop in place.
/// Exact for at most 12 stops in between; beyond that, each is inserted where it costs least, and
/// then parts are reversed as long as this helps; there, the cost between two stops is the least
/// one between their nodes. More than `Request::mostStopsInBestOrder` stops, stops with more than
/// 4,096 nodes in total, and networks in which the searches would visit more than 2^29 nodes keep
/// their order. Returns nothing if no order is possible, or if the search is canceled.
std::optional<std::vector<std::size_t>> cheapestOrder(const SearchContext& context,
                                                      const CostTable& costs,
                                                      const std::vector<const Ends*>& stops);

}  // namespace orivanta::guidance
