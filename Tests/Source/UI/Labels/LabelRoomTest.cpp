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
           {"corridor that widens",
            {{{0, 0}, {100, 0}, {100, 4.1}, {0, 4}}},
            {},
            2,
            {{45, 1}, {10, 2}}},
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

using Triangles = std::vector<LabelTriangle>;

// A convex face; the heights are those of its corners.
void addFace(Triangles& triangles, const Ring& corners, const std::vector<double>& heights) {
  const auto at = [&](std::size_t i) {
    return graphics::Vector3(corners[i].x, corners[i].y, heights[i % heights.size()]);
  };
  for (std::size_t i = 2; i < corners.size(); ++i) triangles.push_back({at(0), at(i - 1), at(i)});
}

Triangles facesAt(const std::vector<Ring>& faces, double height) {
  Triangles triangles;
  for (const Ring& face : faces) addFace(triangles, face, {height});
  return triangles;
}

Triangles joined(Triangles first, const Triangles& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

TEST(LabelRoom, AreasOfShapesAreTheirFloors) {
  // The top of a block with a side, a face down and a corner that is not a number.
  Triangles block = facesAt({box(0, 0, 4, 2)}, 3);
  block.push_back({{{0, 0, 0}, {4, 0, 0}, {4, 0, 3}}});
  block.push_back({{{4, 2, 9}, {4, 0, 9}, {0, 0, 9}}});
  block.push_back({{{0, 0, 9}, {4, 0, 9}, {4, std::numeric_limits<float>::quiet_NaN(), 9}}});
  // Walls of 0.5 around a floor of 6 by 4, which continues below them.
  const Triangles walled = joined(
      facesAt({box(0, 0, 6, 4)}, 1),
      facesAt({box(0, 0, 6, .5), box(0, 3.5, 6, .5), box(0, .5, .5, 3), box(5.5, .5, .5, 3)}, 2));
  Triangles stairs;
  for (int i = 0; i < 5; ++i) stairs = joined(stairs, facesAt({box(i, 0, 1, 2)}, i));
  Triangles ramp;
  addFace(ramp, box(0, 0, 6, 2), {0, 3, 3, 0});
  // Around a hole, with corners in the middle of edges of others, one of them rounded.
  const Triangles divided = facesAt({{{0, 0}, {3, 0}, {3.1, 2}, {0, 2}},
                                     {{3, 0}, {6, 0}, {6, 1}, {3.055, 1}},
                                     {{3.055, 1}, {6, 1}, {6, 2}, {3.1, 2}},
                                     box(0, 2, 1, 2),
                                     box(5, 2, 1, 2),
                                     box(0, 4, 6, 2)},
                                    1);
  struct Case {
    const char* name;
    Triangles triangles;
    double size, height;
    std::size_t edges;
    graphics::Point inside, outside;
    double radius;  // of the largest circle
  };
  for (const Case& tested :
       std::vector<Case>{{"block", block, 8, 3, 4, {2, 1}, {5, 1}, 1},
                         {"room with walls", walled, 24, 1, 4, {0.2, 0.2}, {-0.1, 1}, 2},
                         {"stairs", stairs, 10, 2, 12, {2.5, 1}, {5.5, 1}, 1},
                         {"ramp", ramp, 12, 1.5, 4, {3, 1}, {7, 1}, 1},
                         {"room of several faces", divided, 28, 1, 15, {3, 1.5}, {3, 3}, 1},
                         {"nothing", {}, 0, 0, 0, {0, 0}, {0, 0}, 0}}) {
    SCOPED_TRACE(tested.name);
    const LabelArea area = shapeArea(tested.triangles);
    EXPECT_NEAR(area.size, tested.size, 0.01);
    EXPECT_NEAR(area.height, tested.height, 1e-6);
    EXPECT_EQ(area.edges.size(), tested.edges);
    EXPECT_EQ(area.contains(tested.inside), tested.size > 0);
    EXPECT_FALSE(area.contains(tested.outside));
    const auto anchor = labelAnchor(area);
    EXPECT_NEAR(anchor ? anchor->radius : 0, tested.radius, 0.2);
  }
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
