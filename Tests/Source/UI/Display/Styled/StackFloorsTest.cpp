#include "Source/UI/Display/Styled/StackFloors.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <array>

#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/RawData.hpp"
#include "Source/UI/Display/Styled/FloorCells.hpp"
#include "Source/UI/Display/Styled/StackShapes.hpp"
#include "Source/Venue.hpp"

namespace orivanta {
namespace {

FloorList makeFloors(int count) {
  FloorList floors;
  for (int i = 0; i < count; ++i)
    floors.push_back(Map::make(
        *RawData::parse(fmt::format(R"({{"id": "{0}", "name": "{0}", "elevation": {0}}})", i))));
  std::swap(floors.front(), floors.back());
  return floors;
}

// Floors as NAME@HEIGHT, in parentheses if faded; +N where N are left out.
std::string textOf(const StackedFloors& stack) {
  std::string text = stack.hiddenBelow > 0 ? fmt::format("+{} ", stack.hiddenBelow) : "";
  for (const StackedFloor& floor : stack.floors) {
    const auto place = fmt::format("{}@{:.0f}", floor.floor->name, floor.offset);
    text += (text.empty() || text.back() == ' ' ? "" : " ") +
            (floor.isWhole ? place : "(" + place + ")");
    if (floor.hidden > 0) text += fmt::format(" +{} ", floor.hidden);
  }
  return text;
}

TEST(StackFloors, StacksTheShownFloorAndThoseOfTheRoute) {
  struct Case {
    int count;
    int shown;
    std::vector<int> route;
    const char* expected;
  };
  const Case cases[] = {
      {1, 0, {}, "0@0"},
      {3, 0, {}, "0@0 1@100 2@200"},
      {3, 2, {}, "0@-200 1@-100 2@0"},
      {4, 0, {0, 3}, "0@0 (1@72) (2@114) 3@186"},
      {3, 1, {0}, "0@-100 1@0 (2@72)"},
      {9, 8, {}, "+2 2@-600 3@-500 4@-400 5@-300 6@-200 7@-100 8@0"},
      {10, 5, {}, "+2 2@-300 3@-200 4@-100 5@0 6@100 7@200 8@300 +1 "},
      {12, 0, {0, 11}, "0@0 (1@72) (2@114) (3@156) +5 (9@198) (10@240) 11@312"},
  };
  for (const auto& [count, shown, route, expected] : cases) {
    const FloorList floors = makeFloors(count);
    const auto floor = [&](int i) {
      return floorsFromTop(floors)[static_cast<std::size_t>(count - 1 - i)];
    };
    FloorList onRoute;
    for (const int i : route) onRoute.push_back(floor(i));
    EXPECT_EQ(textOf(stackFloors(floors, onRoute, floor(shown),
                                 [](const Map&, const Map&) { return 100.0; })),
              expected);
  }
}

std::shared_ptr<scene::Node> slab(float x, float y, double width, double depth) {
  const auto floor = scene::Node::make();
  floor->addChild(scene::Node::make(
      scene::makeExtrusion(std::array{graphics::Point{0, 0}, graphics::Point{width, 0},
                                      graphics::Point{width, depth}, graphics::Point{0, depth}},
                           1)));
  floor->children().front()->setPosition({x, y, 0});
  return floor;
}

// A slab that is more than twice as large as the contents of all floors is a site.
TEST(StackShapes, LeaveOutTheSlabsOfSites) {
  struct Case {
    const char* name;
    double slabWidth;
    const char* floor;
    bool isLeftOut;
  };
  const auto venue = Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
  for (const auto& [name, slabWidth, floor, isLeftOut] :
       {Case{"a site", 210, "Path", true}, Case{"a storey", 190, "Path", false},
        Case{"nothing else to walk on", 210, "Walls", false}}) {
    const auto map = makeFloors(1).front();
    map->mapObject = slab(0, 0, 100, 50);
    map->mapObject->children().front()->setName(floor);
    const auto ground = slab(0, 0, slabWidth, 50)->children().front();
    ground->setName("Ground");
    map->mapObject->addChild(ground);
    const auto node =
        Node::make(*RawData::parse(R"({"id": "n", "map": "0", "x": 0, "y": 0, "z": 5})"));
    node->map = map;
    venue->nodes = NodeList{node};
    StackShapes shapes(*map, *venue, KindWords());
    shapes.choose(shapes.contents());
    EXPECT_EQ(shapes.leftOut.size(), isLeftOut ? 1U : 0U) << name;
    EXPECT_EQ(shapes.shapes.size(), isLeftOut ? 1U : 2U) << name;
  }
}

TEST(FloorCells, TellHowFarAFloorMustBeShifted) {
  struct Case {
    const char* name;
    std::shared_ptr<scene::Node> lower;
    std::shared_ptr<scene::Node> upper;
    double expected;
  };
  const Case cases[] = {
      {"equal", slab(0, 0, 100, 64), slab(0, 0, 100, 64), 0.78},
      {"beside each other", slab(0, 0, 40, 64), slab(60, 0, 40, 64), 0},
      {"behind", slab(0, 0, 100, 32), slab(0, 33, 100, 31), 0},
      {"in front", slab(0, 33, 100, 31), slab(0, 0, 100, 32), 0.9},
      {"small over large", slab(0, 0, 100, 64), slab(0, 0, 10, 64), 0},
  };
  const std::vector<graphics::Vector3> corners{{0, 0, 0}, {100, 64, 0}};
  for (const auto& [name, lower, upper, expected] : cases)
    EXPECT_NEAR(FloorCells(lower->children(), {corners, 0})
                    .shiftOf(FloorCells(upper->children(), {corners, 0}), 0.22),
                expected, 0.03)
        << name;
}

}  // namespace
}  // namespace orivanta
