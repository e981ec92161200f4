// The Hilbert curve: an order of points in the plane that keeps neighbors together.
#pragma once

#include <cstdint>

namespace orivanta {

/// Returns the position of the cell (column, row) along the curve through the 65,536 x 65,536 cells
/// of a square. Consecutive cells of the curve share an edge. After Warren, Hacker's Delight,
/// chapter 16.
std::uint32_t hilbertDistance(std::uint16_t column, std::uint16_t row);

}  // namespace orivanta
