#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "Apps/Import/Geometry/Overlap.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/Geometry/TouchingGroups.hpp"
#include "Apps/Import/Network/Ways.hpp"

namespace orivanta::importer {

namespace {

using package::rectangle;

// A hall with teeth at whole meters and a hole, and a second hall.
Shape halls() {
  Outline teeth{{40.0, -3.0}};
  for (int i = 40; i > 0; --i) {
    teeth.push_back({i * 1.0, i % 3 == 0 ? 9.0 : 12.0});
    teeth.push_back({i - 0.5, 7.25});
  }
  teeth.push_back({0.0, -3.0});
  Outline hole = rectangle(5.0, 0.0, 9.0, 2.0);
  std::reverse(hole.begin(), hole.end());
  return {{teeth, {hole}}, {rectangle(44.0, -3.0, 60.0, 11.0), {}}};
}

TEST(Geometry, SpaceContainsWhatItsOutlinesDo) {
  const Shape shape = halls();
  const Space space(shape);
  for (int row = -20; row < 60; ++row)  // also the heights of corners and outside the grid
    for (int column = -20; column < 280; ++column) {
      const Point point{column * 0.25 + 0.013, row * 0.25};
      EXPECT_EQ(space.contains(point), contains(shape, point)) << point.x << ' ' << point.y;
    }
}

TEST(Geometry, ComparesOverlapsWithLimits) {
  const Shape shape = halls();
  for (double x = -10.0; x < 60.0; x += 3.7)
    for (double y = -12.0; y < 12.0; y += 2.9) {
      const Shape other{{rectangle(x, y, x + 9.0, y + 6.0), {}}};
      const double exact = areaOf(common(shape, other));
      for (const double share : {0.0, 0.3, 0.999, 1.001, 1.4})
        EXPECT_EQ(overlapExceeds(shape, other, share * exact), share < 1.0 && exact > 0.0)
            << x << ' ' << y << ' ' << share;
    }
}

TEST(Geometry, BoxesThatTouchAreInOneGroup) {
  std::mt19937 random(7);
  std::vector<package::Box> boxes(300);
  const auto number = [&](unsigned below) { return static_cast<double>(random() % below); };
  for (package::Box& box : boxes) {
    const Point least{number(90), number(90)};
    box.add(least);
    box.add(least + Point{number(7), number(5)});
  }
  boxes.resize(360, boxes.front());  // more than a cell compares one with another
  boxes.emplace_back();
  std::vector<std::size_t> groupOf(boxes.size());
  const auto groups = touchingGroups(boxes);
  for (std::size_t i = 0; i < groups.size(); ++i)
    for (const std::size_t box : groups[i]) groupOf[box] = i;
  EXPECT_GT(groups.size(), 20U);
  for (std::size_t i = 0; i < boxes.size(); ++i)
    for (std::size_t k = 0; k < i; ++k) {
      const package::Box& a = boxes[i];
      const package::Box& b = boxes[k];
      const bool touch = a.least.x <= b.most.x && b.least.x <= a.most.x && a.least.y <= b.most.y &&
                         b.least.y <= a.most.y;
      EXPECT_TRUE(!touch || groupOf[i] == groupOf[k]);
    }
}

// In a hall with very many corners, the skeleton is made in squares. A way that is longer than they
// are must be found as well, and none where a wall is closed.
TEST(Geometry, FindsWaysInLargeHalls) {
  Outline outline{{200.0, 0.0}};
  for (int i = 3000; i >= 0; --i) outline.push_back({i * 0.05 + 25.0, i % 2 == 0 ? 20.0 : 20.3});
  outline.insert(outline.end(), {{25.0, 30.0}, {0.0, 30.0}, {0.0, 0.0}});
  const Shape shape{{outline, {rectangle(60.0, 5.0, 61.0, 15.0)}}, {rectangle(0, 40, 9, 50), {}}};
  const Space space(shape);
  for (const double far : {5.0, 20.0, 60.0, 150.0}) {
    Ways ways(shape, 0.25, space);
    const Point goal{10.0 + far, 10.0};
    const auto arrive = [&](const DraftNode& point) {
      return package::distance(point.position, goal) < 3.0 ? std::optional(point) : std::nullopt;
    };
    DraftNode from;
    from.position = {10.0, 10.0};
    EXPECT_TRUE(ways.nearest(from, arrive)) << far;
    from.position = {5.0, 45.0};
    EXPECT_FALSE(ways.nearest(from, arrive)) << far;
  }
}

}  // namespace

}  // namespace orivanta::importer
