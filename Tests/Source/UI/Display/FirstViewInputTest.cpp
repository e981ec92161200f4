#include "Source/UI/Display/FirstViewInput.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

TEST(FirstViewInput, CountsPlacesEntrancesAndConnectorsOfEachFloor) {
  const auto venue = test::TwoFloorVenue().load();
  const FirstViewInput input = firstViewInput(*venue, [](const Location& location) {
    return *location.id == "l1" ? FirstViewRole::entrance : FirstViewRole::background;
  });
  ASSERT_EQ(input.floors.size(), 2U);
  EXPECT_EQ(input.unitsPerMeter, 2);
  EXPECT_EQ(input.floors[0].entrances, 1U);
  EXPECT_EQ(input.floors[1].entrances, 0U);
  EXPECT_EQ(input.floors[1].connectors, 2U);
  EXPECT_EQ(input.floors[1].elevation, 10);
  ASSERT_EQ(input.places.size(), 2U);
  EXPECT_EQ(input.places[0].weight, 0.5) << "without an area";
  EXPECT_EQ(input.places[1].weight, 0.25) << "with an area, in the background";
  EXPECT_EQ(input.places[1].position, (graphics::Point{3, 0}));
}

}  // namespace
}  // namespace orivanta
