#include "Source/UI/Display/FirstViewInput.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "Tests/Support/LoadedPackage.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

double pointsOfMedianRoom(const FirstViewInput& input, std::size_t floor, double pointsPerUnit) {
  std::vector<double> sides;
  for (const FirstViewPlace& place : input.places)
    if (place.floor == floor && place.area > 0)
      sides.push_back(std::sqrt(place.area) * pointsPerUnit);
  if (sides.empty()) return 0;
  std::nth_element(sides.begin(), sides.begin() + sides.size() / 2, sides.end());
  return sides[sides.size() / 2];
}

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

TEST(FirstViewInput, RealVenuesOpenWithReadableRooms) {
  if (!test::venuesFolder()) GTEST_SKIP() << "the real venues are not available";
  for (const std::string& name : test::venueNames()) {
    SCOPED_TRACE(name);
    const auto venue = test::loadPackage(*test::venuesFolder() / name);
    const FirstViewInput input = firstViewInput(*venue);
    const auto floor = firstFloor(input.floors, input.places);
    ASSERT_TRUE(floor.has_value());
    const graphics::Size view{1280, 800};
    const FirstRegion region =
        firstRegion(input.floors[*floor], *floor, input.places, view, input.unitsPerMeter);
    EXPECT_GT(region.share, 0.15);
    const double scale =
        std::min(view.width / region.rect.size.width, view.height / region.rect.size.height);
    EXPECT_GE(pointsOfMedianRoom(input, *floor, scale), 15);
  }
}

}  // namespace
}  // namespace orivanta
