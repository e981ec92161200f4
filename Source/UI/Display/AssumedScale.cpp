#include "Source/UI/Display/AssumedScale.hpp"

#include <algorithm>

namespace orivanta {

double assumedUnitsPerMeter(std::vector<double> sides) {
  if (sides.empty()) return 1;
  const auto middle = sides.begin() + static_cast<std::ptrdiff_t>(sides.size() / 2);
  std::nth_element(sides.begin(), middle, sides.end());
  return *middle / metersOfMedianRoom;
}

}  // namespace orivanta
