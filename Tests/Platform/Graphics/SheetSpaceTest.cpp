#include "Platform/Graphics/SheetSpace.hpp"

#include <gtest/gtest.h>

#include <random>

namespace orivanta::graphics {
namespace {

bool areTooClose(const Cell& a, const Cell& b) {
  return a.x <= b.x + b.width && b.x <= a.x + a.width && a.y <= b.y + b.height &&
         b.y <= a.y + a.height;
}

TEST(SheetSpace, CellsNeverTouchAndFreedSpaceIsUsedAgain) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t end) { return static_cast<std::uint32_t>(random() % end); };
  SheetSpace space(256);
  std::vector<Cell> cells;
  std::uint32_t most = 0;  // of the pixels in use
  std::uint32_t used = 0;
  for (int round = 0; round < 20'000; ++round) {
    if (!cells.empty() && below(100) < 48) {
      std::swap(cells[below(cells.size())], cells.back());
      space.free(cells.back());
      used -= cells.back().width * cells.back().height;
      cells.pop_back();
    } else if (const auto cell = space.take(1 + below(60), 1 + below(24))) {
      ASSERT_LT(cell->x + cell->width, 256U);
      ASSERT_LT(cell->y + cell->height, 256U);
      for (const Cell& other : cells) ASSERT_FALSE(areTooClose(*cell, other)) << round;
      cells.push_back(*cell);
      most = std::max(most, used += cell->width * cell->height);
    }
  }
  EXPECT_GT(most, 256 * 256 / 2);
  for (const Cell& cell : cells) space.free(cell);
  EXPECT_EQ(space.take(255, 255), (Cell{0, 0, 255, 255}));
  for (const auto& [width, height] : {std::pair(0U, 5U), {5U, 0U}, {256U, 5U}, {5U, ~0U}})
    EXPECT_FALSE(SheetSpace(256).take(width, height)) << width << " x " << height;
}

}  // namespace
}  // namespace orivanta::graphics
