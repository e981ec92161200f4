#include "Source/UI/Display/FirstView.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace orivanta {
namespace {

// A number of places in a row on a floor.
void add(std::vector<FirstViewPlace>& places, std::size_t floor, int count, graphics::Point start,
         double step, double weight = 1, double area = 64) {
  for (int i = 0; i < count; ++i)
    places.push_back({floor, {start.x + i * step, start.y}, weight, area});
}

TEST(FirstView, FloorIsWhereThePlacesAre) {
  struct Case {
    const char* name;
    std::vector<FirstViewFloor> floors;
    std::vector<int> places;
    std::optional<std::size_t> expected;
  };
  for (const Case& tested : std::vector<Case>{
           {"no floor", {}, {}, {}},
           {"most places", {{0, 1, 1, {}}, {4, 1, 1, {}}}, {10, 100}, 1},
           {"similar: the ground", {{4, 0, 1, {}}, {0, 0, 1, {}}}, {100, 90}, 1},
           {"similar: the first", {{4, 0, 1, {}}, {-4, 0, 1, {}}}, {95, 100}, 0},
           {"entrances and connectors count", {{0, 0, 0, {}}, {4, 9, 9, {}}}, {100, 80}, 1},
           {"only entrances", {{0, 0, 0, {}}, {4, 3, 0, {}}}, {0, 0}, 1},
           {"nothing at all: the ground", {{4, 0, 0, {}}, {0, 0, 0, {}}}, {0, 0}, 1},
           {"one floor", {{1e308, 0, 0, {}}}, {0}, 0}}) {
    SCOPED_TRACE(tested.name);
    std::vector<FirstViewPlace> places;
    for (std::size_t i = 0; i < tested.places.size(); ++i)
      add(places, i, tested.places[i], {0, 0}, 1);
    add(places, 99, 50, {0, 0}, 1);  // of a floor that does not exist
    EXPECT_EQ(firstFloor(tested.floors, places), tested.expected);
  }
  EXPECT_EQ(firstViewWeight(false, false, true), 1);
  EXPECT_EQ(firstViewWeight(true, true, false), 0.25 * 0.25 * 0.5);
}

TEST(FirstView, RegionIsTheCore) {
  struct Case {
    const char* name;
    graphics::Rect areas;
    std::vector<FirstViewPlace> places;
    std::optional<double> unitsPerMeter;
    bool isWhole;
    double least, most;  // of the width of the region
    graphics::Point inside;
  };
  std::vector<FirstViewPlace> core;
  add(core, 0, 95, {1000, 50}, 2);
  std::vector<FirstViewPlace> spread = core;
  add(spread, 0, 5, {0, 50}, 400);
  std::vector<FirstViewPlace> even;
  add(even, 0, 100, {0, 50}, 20);
  std::vector<FirstViewPlace> smallRooms;
  add(smallRooms, 0, 100, {0, 50}, 20, 1, 4);
  std::vector<FirstViewPlace> doubled = spread;
  for (FirstViewPlace& place : doubled) {
    place.position = {place.position.x * 2, place.position.y * 2};
    place.area *= 4;
  }
  std::vector<FirstViewPlace> hostile = spread;
  hostile.push_back({0, {std::nan(""), 0}, 1, 0});
  hostile.push_back({0, {50, 50}, std::numeric_limits<double>::infinity(), 0});
  const graphics::Rect wide{{0, 0}, {2000, 100}};
  const double halfMeter = 1280 / 40.0 * 2;  // the median room is 2 units wide
  for (const Case& tested : std::vector<Case>{
           {"the core of a station", wide, spread, 1, false, 150, 300, {1094, 50}},
           {"in other units", {{0, 0}, {4000, 200}}, doubled, 2, false, 300, 600, {2188, 100}},
           {"too large: the densest part", wide, even, 1, false, 426, 427, {213, 50}},
           {"small rooms", wide, smallRooms, 1, false, 426, 427, {213, 50}},
           {"the room alone, without scale",
            wide,
            smallRooms,
            {},
            false,
            halfMeter - 1,
            halfMeter + 1,
            {40, 50}},
           {"nearly all areas: all", {{990, 0}, {220, 100}}, core, 1, true, 220, 220, {1000, 50}},
           {"no places: all", wide, {}, 1, true, 2000, 2000, {1, 1}},
           {"hostile values", wide, hostile, 1, false, 150, 427, {1094, 50}},
           {"without extent", {{1000, 50}, {0, 0}}, {{0, {1000, 50}, 1, 0}}, 1, true, 0, 0, {}}}) {
    SCOPED_TRACE(tested.name);
    const FirstViewFloor floor{0, 0, 0, tested.areas};
    const FirstRegion region =
        firstRegion(floor, 0, tested.places, {1280, 800}, tested.unitsPerMeter);
    EXPECT_EQ(region.isWhole, tested.isWhole);
    EXPECT_GE(region.rect.size.width, tested.least);
    EXPECT_LE(region.rect.size.width, tested.most);
    if (region.rect.size.width > 0) {
      EXPECT_TRUE(region.rect.contains(tested.inside))
          << region.rect.minX() << " to " << region.rect.maxX();
    }
    if (!region.isWhole) {
      EXPECT_NEAR(region.rect.size.height / region.rect.size.width, 800.0 / 1280, 1e-9);
    }
  }
}

}  // namespace
}  // namespace orivanta
