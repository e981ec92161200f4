#include "Source/UI/Display/Styled/FloorOutlines.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/UI/Display/Styled/OutlineColors.hpp"
#include "Source/UI/Style/ColorMeasures.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::test {
namespace {

using graphics::Color;
using Surface = ShapeRole::Surface;

constexpr ShapeRole shop{Surface::place, FillKind::shop};
constexpr ShapeRole food{Surface::place, FillKind::food};
constexpr OutlineSurface shopSurface = static_cast<OutlineSurface>(FillKind::shop);
constexpr OutlineSurface foodSurface = static_cast<OutlineSurface>(FillKind::food);

struct Block {
  double left, bottom, right, top;
  float low = 0;
  float high = 3;
};

OutlinedShape make(const ShapeRole& role, std::vector<Block> blocks) {
  std::vector<std::array<float, 8>> vertices;
  std::vector<std::uint32_t> indices;
  for (const auto& [left, bottom, right, top, low, high] : blocks)
    for (const float z : {low, high}) {
      const auto first = static_cast<std::uint32_t>(vertices.size());
      for (const auto& [x, y] :
           {std::pair{left, bottom}, {right, bottom}, {right, top}, {left, top}})
        vertices.push_back({static_cast<float>(x), static_cast<float>(y), z, 0, 0, 0, 0, 0});
      std::vector<std::uint32_t> face{0, 1, 2, 0, 2, 3};
      if (z == low) std::reverse(face.begin(), face.end());  // faces down
      for (const std::uint32_t corner : face) indices.push_back(first + corner);
    }
  return {scene::Geometry::make(bytesOf(vertices), {{.data = bytesOf(indices)}}),
          graphics::Matrix4(1.0F), role};
}

/// The lengths of the outlines by color index, without the vertices on the other side.
std::map<int, double> lengthsOf(const std::vector<OutlinedShape>& shapes, float height = 3) {
  const auto outlines = makeOutlines(shapes, 1);
  std::map<int, double> lengths;
  for (std::size_t i = 0; i < outlines->vertices().size(); i += 4) {
    const auto& from = outlines->vertices()[i];
    const auto& to = outlines->vertices()[i + 2];
    if (from.position[2] == height && to.position[2] == height)
      lengths[from.color] +=
          std::hypot(to.position[0] - from.position[0], to.position[1] - from.position[1]);
  }
  for (auto& [color, length] : lengths) length = std::round(length * 10) / 10;
  return lengths;
}

int between(OutlineSurface first, OutlineSurface second) { return outlineIndex(first, second); }

TEST(FloorOutlines, HaveTheColorsOfTheSurfacesOnBothSides) {
  const int shopWalkable = between(shopSurface, outlineSurface::walkable);
  const int slabBackdrop = between(outlineSurface::slab, outlineSurface::backdrop);
  const int walkableSlab = between(outlineSurface::walkable, outlineSurface::slab);
  const OutlinedShape slab = make({Surface::slab}, {{-5, -5, 25, 25, -1, 0}});
  const OutlinedShape corridor = make({Surface::walkable}, {{-1, -4, 21, 24, 0, 0.4F}});
  const OutlinedShape room = make(shop, {{0, 0, 10, 10}});
  const OutlinedShape lower = make(food, {{10, 0, 20, 10, 0, 2}});
  const struct {
    std::vector<OutlinedShape> shapes;
    float height;
    std::map<int, double> lengths;
  } cases[]{
      {{room}, 3, {{between(shopSurface, outlineSurface::backdrop), 40}}},
      {{slab, corridor, room}, 3, {{shopWalkable, 40}}},
      {{slab, corridor, room, lower},
       3,
       {{shopWalkable, 30}, {between(shopSurface, foodSurface), 10}}},
      {{slab, corridor, room, lower}, 0.4F, {{walkableSlab, 100}}},
      {{slab, corridor}, 0, {{slabBackdrop, 120}}},
      {{slab, make({Surface::fixture}, {{0, 0, 9, 9}}), make({Surface::wall}, {{10, 0, 11, 9}})},
       3,
       {}},
      // Two walkable areas side by side: no edge between them, nor beside the room.
      {{make({Surface::walkable}, {{0, 0, 10, 5}}), make({Surface::walkable}, {{0, 5, 10, 10}}),
        make(shop, {{10, 0, 20, 10}})},
       3,
       {{between(outlineSurface::walkable, outlineSurface::backdrop), 30},
        {between(outlineSurface::walkable, shopSurface), 10},
        {between(outlineSurface::backdrop, shopSurface), 30}}},
  };
  for (const auto& each : cases) EXPECT_EQ(lengthsOf(each.shapes, each.height), each.lengths);
}

TEST(FloorOutlines, FollowTheTopsOfWallsAndLeaveDoorsOpen) {
  // A floor with walls of 0.2 on three sides and beside a door of 4 units.
  const OutlinedShape room = make(shop, {{0, 0, 10, 10, 0, 0.1F},
                                         {0, 0, 0.2, 10},
                                         {9.8, 0, 10, 10},
                                         {0.2, 9.8, 9.8, 10},
                                         {0.2, 0, 3, 0.2},
                                         {7, 0, 9.8, 0.2}});
  const auto lengths = lengthsOf({room});
  ASSERT_EQ(lengths.size(), 1U);
  EXPECT_NEAR(lengths.begin()->second, 36, 0.5);
  EXPECT_TRUE(lengthsOf({room}, 0.1F).empty());
}

TEST(FloorOutlines, AreLinesWithoutNeedlessCorners) {
  const auto outlines = makeOutlines(std::vector{make(shop, {{0, 0, 30, 10}})}, 1);
  EXPECT_EQ(outlines->parts().size(), 1U);
  EXPECT_EQ(outlines->vertices().size(), 4U * 4U);
  EXPECT_TRUE(makeOutlines({}, 1)->parts().empty());
  // Stairs: straight lines beside the steps. The last step is level.
  std::vector<Block> steps;
  for (int i = 0; i < 8; ++i)
    steps.push_back({2.0 * i, 0, 2.0 * i + 2, 5, 0, static_cast<float>(i + 1)});
  EXPECT_EQ(makeOutlines(std::vector{make(shop, steps)}, 1)->vertices().size(), 6U * 4U);
}

TEST(FloorOutlines, ContrastWithBothSurfaces) {
  for (const auto& theme : {MapTheme::light(), MapTheme::dark()}) {
    const auto colors = outlineColors(*theme);
    ASSERT_EQ(colors.size(), 153U);
    std::vector<Color> fills(theme->colors.fills.begin(), theme->colors.fills.end());
    fills.insert(fills.end(), {theme->colors.walkable, theme->colors.slab, theme->colors.backdrop});
    for (OutlineSurface first = 0; first < outlineSurface::count; ++first)
      for (OutlineSurface second = 0; second < outlineSurface::count; ++second) {
        const auto& [color, width] = colors[outlineIndex(first, second)];
        const bool isFaint = std::min(first, second) >= fillKindCount;
        const double least = isFaint ? theme->walkableOutlineContrast : theme->outlineContrast;
        for (const OutlineSurface surface : {first, second})
          EXPECT_GE(contrastOf(color, fills[surface]), least - 0.02);
        EXPECT_EQ(width, static_cast<float>(isFaint ? theme->sizes.walkableOutline
                                                    : theme->sizes.outline));
      }
  }
}

}  // namespace
}  // namespace orivanta::test
