#include "Source/Graph/HilbertCurve.hpp"

#include <utility>

namespace orivanta {

std::uint32_t hilbertDistance(std::uint16_t column, std::uint16_t row) {
  std::uint32_t x = column;
  std::uint32_t y = row;
  std::uint32_t distance = 0;
  for (std::uint32_t side = 0x8000; side != 0; side /= 2) {
    const bool right = (x & side) != 0;
    const bool upper = (y & side) != 0;
    distance += side * side * ((right ? 3U : 0U) ^ (upper ? 1U : 0U));
    if (upper) continue;
    if (right) {
      x = ~x;
      y = ~y;
    }
    std::swap(x, y);
  }
  return distance;
}

}  // namespace orivanta
