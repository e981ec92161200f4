#include "Source/UI/Labels/LabelRoom.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "Source/UI/Labels/AreaRaster.hpp"

namespace orivanta {
namespace {

using Ring = std::vector<graphics::Point>;

Ring box(double x, double y, double width, double height) {
  return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

LabelArea areaOf(const std::vector<Ring>& rings) {
  LabelArea area;
  for (std::size_t i = 0; i < rings.size(); ++i) area.addRing(rings[i], i > 0);
  return area;
}

// A comb with many teeth below a bar; the bar has the greatest circle.
Ring comb(int teeth) {
  Ring ring{{0, 20}, {0, 10}};
  for (int i = 0; i < teeth; ++i) {
    const double x = 100.0 * i / teeth;
    ring.insert(ring.end(), {{x + 20.0 / teeth, 0}, {x + 50.0 / teeth, 10}});
  }
  ring.insert(ring.end(), {{100, 10}, {100, 20}});
  return ring;
}

TEST(LabelRoom, AnchorsAreInTheLargestCircle) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  struct Case {
    const char* name;
    std::vector<Ring> rings;
    std::vector<Ring> onIt;
    double radius;  // 0 if there is no anchor
    graphics::Rect where;
  };
  for (const Case& tested : std::vector<Case>{
           {"square", {box(0, 0, 10, 10)}, {}, 5, {{4.9, 4.9}, {0.2, 0.2}}},
           {"corridor: its middle", {box(0, 0, 1000, 4)}, {}, 2, {{499, 1.9}, {2, 0.2}}},
           {"L",
            {{{0, 0}, {30, 0}, {30, 4}, {10, 4}, {10, 30}, {0, 30}}},
            {},
            5.05,
            {{0, 0}, {10, 26}}},
           {"hole", {box(0, 0, 30, 10), box(2, 2, 16, 6)}, {}, 5, {{23, 4.5}, {3, 1}}},
           {"area on it", {box(0, 0, 30, 10)}, {box(-5, -5, 20, 20)}, 5, {{19, 4.5}, {7, 1}}},
           {"entirely covered", {box(0, 0, 30, 10)}, {box(-5, -5, 50, 50)}, 5, {{14, 4}, {2, 2}}},
           {"hostile comb", {comb(20'000)}, {}, 5, {{4, 13}, {92, 4}}},
           {"hair", {box(0, 0, 1e12, 1e-3)}, {}, 5e-4, {{0, 0}, {1e12, 1e-3}}},
           {"without height", {box(0, 0, 10, 0)}, {}, 0, {}},
           {"not finite", {{{0, 0}, {infinity, 0}, {0, 5}}}, {}, 0, {}},
           {"empty", {}, {}, 0, {}}}) {
    SCOPED_TRACE(tested.name);
    std::vector<LabelArea> onIt;
    for (const Ring& ring : tested.onIt) onIt.push_back(areaOf({ring}));
    const auto anchor = labelAnchor(areaOf(tested.rings), onIt);
    ASSERT_EQ(anchor.has_value(), tested.radius > 0);
    if (!anchor) continue;
    EXPECT_GE(anchor->radius, tested.radius * 0.97);
    EXPECT_LE(anchor->radius, tested.radius * 1.1);
    EXPECT_TRUE(tested.where.contains(anchor->point)) << anchor->point.x << ", " << anchor->point.y;
  }
}

TEST(LabelRoom, FreeWidthIsThatOfTheBand) {
  const LabelArea area = areaOf({box(-10, -3, 30, 6)});
  const std::vector<LabelArea> pillar{areaOf({box(8, 1, 1, 1)})};
  const LabelRoom room(area, {}, {{0, 0}, 3});
  const LabelRoom withPillar(area, pillar, {{0, 0}, 3});
  struct Case {
    const LabelRoom& room;
    double height, turn, width;
  };
  for (const auto& [tested, height, turn, width] :
       std::vector<Case>{{room, 4, 0, 20},
                         {room, 6.1, 0, 0},
                         {room, 4, M_PI, 20},
                         {room, 4, M_PI / 2, 6},
                         {withPillar, 1, 0, 20},
                         {withPillar, 4, 0, 16},
                         {room, 2, M_PI / 6, 2 * (3 - std::cos(M_PI / 6)) / std::sin(M_PI / 6)}})
    EXPECT_NEAR(tested.freeWidth(height, {std::cos(turn), std::sin(turn)}), width, 1e-9)
        << height << ' ' << turn;
}

TEST(LabelRoom, TopOfAShapeHasItsOutlineAndSize) {
  const graphics::Vector3 a{0, 0, 3}, b{4, 0, 3}, c{4, 2, 3}, d{0, 2, 3}, e{0, 0, 0}, f{4, 0, 0};
  const float bad = std::numeric_limits<float>::quiet_NaN();
  const std::vector<LabelTriangle> triangles{{a, b, c}, {a, c, d}, {e, f, b},
                                             {e, b, a}, {c, b, a}, {{a, b, {bad, 0, 9}}}};
  const LabelArea top = levelTop(triangles);
  EXPECT_EQ(top.edges.size(), 4U);
  EXPECT_DOUBLE_EQ(top.size, 8);
  EXPECT_TRUE(top.contains({2, 1}));
  EXPECT_FALSE(top.contains({5, 1}));
  EXPECT_TRUE(levelTop({}).edges.empty());
}

TEST(LabelRoom, RasterFindsForeignAreas) {
  const std::vector<LabelArea> areas{areaOf({box(0, 0, 10, 10)}), areaOf({box(10, 0, 10, 10)})};
  const AreaRaster raster(areas, std::vector<std::uint32_t>{0, 1});
  const std::array<graphics::Point, 4> across{{{4, 4}, {16, 4}, {16, 6}, {4, 6}}};
  EXPECT_DOUBLE_EQ(raster.shareOnOthers(across, 0), 0.5);
  EXPECT_DOUBLE_EQ(raster.shareOnOthers(across, 7), 1);
  EXPECT_DOUBLE_EQ(raster.shareOnOthers({{{40, 4}, {50, 4}, {50, 6}, {40, 6}}}, 0), 0);
  EXPECT_DOUBLE_EQ(AreaRaster({}, {}).shareOnOthers(across, 0), 0);
}

}  // namespace
}  // namespace orivanta
