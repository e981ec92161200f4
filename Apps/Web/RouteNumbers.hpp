// Nodes and routes as arrays of numbers, which the page reads without JSON.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Apps/Web/LoadedVenue.hpp"

namespace orivanta::web {

/// Returns four numbers for each node: x, y, z and the index of its floor, -1 if it has none.
std::vector<double> nodeNumbers(const LoadedVenue& venue);

/// Searches a route in the venue's graph. Returns its cost, the number of nodes that the search
/// took, and the indices of its nodes; nothing if there is no route. Indices that are out of range
/// are left out.
std::vector<double> routeNumbers(const LoadedVenue& venue, std::span<const std::int32_t> from,
                                 std::span<const std::int32_t> to);

}  // namespace orivanta::web
