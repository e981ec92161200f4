#include "Platform/Graphics/SheetSpace.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace orivanta::graphics {
namespace {

// Whether the cells overlap or touch.
bool areTooClose(const Cell& a, const Cell& b) {
  return a.x <= b.x + b.width && b.x <= a.x + a.width && a.y <= b.y + b.height &&
         b.y <= a.y + a.height;
}

TEST(SheetSpace, CellsNeverTouchAndFreedSpaceIsUsedAgain) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t end) { return random() % end; };
  SheetSpace space(256);
  std::vector<Cell> cells;
  int refused = 0;
  for (int round = 0; round < 20'000; ++round) {
    if (!cells.empty() && below(100) < 48) {
      std::swap(cells[below(cells.size())], cells.back());
      space.free(cells.back());
      cells.pop_back();
      continue;
    }
    const auto width = static_cast<std::uint32_t>(1 + below(60));
    const auto height = static_cast<std::uint32_t>(1 + below(24));
    const auto cell = space.take(width, height);
    refused += cell ? 0 : 1;
    if (!cell) continue;
    ASSERT_EQ(cell->width, width);
    ASSERT_EQ(cell->height, height);
    ASSERT_LT(cell->x + width, 256U);
    ASSERT_LT(cell->y + height, 256U);
    for (const Cell& other : cells) ASSERT_FALSE(areTooClose(*cell, other)) << round;
    cells.push_back(*cell);
  }
  EXPECT_GT(refused, 100);
  for (const Cell& cell : cells) space.free(cell);
  EXPECT_EQ(space.take(255, 255), (Cell{0, 0, 255, 255}));
}

TEST(SheetSpace, NamesFillMostOfIt) {
  std::mt19937 random(7);
  SheetSpace space(1024);
  std::uint64_t used = 0;
  const auto length = [&] { return static_cast<std::uint32_t>(40 + random() % 100); };
  while (const auto cell = space.take(length(), random() % 4 == 0 ? 33 : 18))
    used += std::uint64_t{cell->width} * cell->height;
  EXPECT_GT(used, 1024 * 1024 * 3 / 4);
  for (const auto& [width, height] : {std::pair(0U, 5U), {5U, 0U}, {1024U, 5U}, {5U, ~0U}})
    EXPECT_FALSE(SheetSpace(1024).take(width, height)) << width << " x " << height;
}

}  // namespace
}  // namespace orivanta::graphics
