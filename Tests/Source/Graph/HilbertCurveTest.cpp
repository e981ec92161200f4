#include "Source/Graph/HilbertCurve.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

namespace orivanta {
namespace {

TEST(HilbertCurve, VisitsEveryCellOfASquareInNeighbouringSteps) {
  constexpr int side = 64;
  struct Cell {
    int column = -1, row = -1;
  };
  std::vector<Cell> curve(std::size_t{side} * side);
  for (int row = 0; row < side; ++row)
    for (int column = 0; column < side; ++column) {
      const auto distance =
          hilbertDistance(static_cast<std::uint16_t>(column), static_cast<std::uint16_t>(row));
      ASSERT_LT(distance, curve.size());
      ASSERT_EQ(curve[distance].column, -1) << "visited twice";
      curve[distance] = {column, row};
    }
  for (std::size_t i = 1; i < curve.size(); ++i)
    ASSERT_EQ(
        std::abs(curve[i].column - curve[i - 1].column) + std::abs(curve[i].row - curve[i - 1].row),
        1)
        << i;
}

}  // namespace
}  // namespace orivanta
