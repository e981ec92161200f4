// Further routes that differ from the best one.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Source/Guidance/Network/CostTable.hpp"
#include "Source/Guidance/Network/Ends.hpp"
#include "Source/Guidance/Network/GuideNetwork.hpp"

namespace orivanta::guidance {

/// Searches at most four times with the arcs of the routes found so far at 1.4 times their cost.
/// Keeps a route that costs at most 1.3 times the best one and 15 s more, and that shares with each
/// other route at most 60 % of its cost, or 85 % if it uses other connectors. Returns at most
/// `wanted` routes by cost. `stops` are the ends of the paths in order.
std::vector<std::vector<NetworkPath>> alternativesTo(
    const std::vector<NetworkPath>& best, const std::vector<const Ends*>& stops,
    const GuideNetwork& network, const CostTable& costs, int wanted,
    const std::function<std::optional<std::vector<NetworkPath>>(const CostTable&)>& search);

}  // namespace orivanta::guidance
