#include "Source/UI/Display/Styled/RouteLine.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "Source/Map.hpp"

namespace orivanta::test {
namespace {

std::shared_ptr<Map> makeFloor() {
  return Map::make(*RawData::parse(R"({"id": "f", "name": "F", "scene": {"obj": ""}})"));
}

// Up to (100, 0), a ride, from (100, 0) to (100, 50) on the upper floor, a ride, and back.
TEST(RouteLine, MeasuresThePassedPartAlongAllFloors) {
  const auto lower = makeFloor();
  const auto upper = makeFloor();
  const RouteLine line({{{0, 0, 0}, lower},
                        {{100, 0, 0}, lower},
                        {{100, 0, 9}, upper},
                        {{100, 50, 9}, upper},
                        {{100, 50, 0}, lower},
                        {{0, 50, 0}, lower}});
  const auto lines = line.linesOn(*lower, 0, line.size());
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1].distance, 150);
  EXPECT_EQ(line.linesOn(*lower, 3, line.size()).size(), 1U);
  EXPECT_TRUE(line.linesOn(*upper, 3, line.size()).empty());
  const struct {
    const Map& floor;
    graphics::Vector3 position;
    double passed;
    double length;
  } cases[] = {
      {*lower, {30, 4, 0}, 0, 30},     {*lower, {30, 46, 0}, 0, 220},
      {*lower, {30, 4, 0}, 60, 60},    {*lower, {30, 25, 0}, 0, 30},
      {*lower, {30, 25, 0}, 150, 220}, {*upper, {90, 20, 9}, 30, 120},
      {*upper, {90, 20, 9}, 140, 140}, {*makeFloor(), {30, 4, 0}, 7, 7},
  };
  for (const auto& [floor, position, passed, length] : cases)
    EXPECT_NEAR(line.lengthTo(floor, position, passed), length, 1e-6) << length;
}

TEST(RouteLine, ArrowsKeepTheirPlacesWhileTheMapZooms) {
  const auto theme = MapTheme::light();
  double former = 0;
  for (double pointsPerMeter = 1.5; pointsPerMeter < 100; pointsPerMeter *= 1.1) {
    const auto look = routeLook(*theme, theme->colors.route, {pointsPerMeter, 10}, 0, 5e5);
    const double spacing = look.route->arrowSpacing;
    EXPECT_NEAR(spacing / 10 * pointsPerMeter, 40, 17);
    if (former > 0) {
      EXPECT_TRUE(former == spacing || former == 2 * spacing);
    }
    EXPECT_NEAR(std::fmod(5e5 - look.route->arrowPhase, spacing), 0, 1e-3);
    former = spacing;
  }
  const auto far = routeLook(*theme, theme->colors.route, {1.4, 10}, 0, 0);
  EXPECT_EQ(far.route->arrowSpacing, 0);
  EXPECT_EQ(far.colors.front().width, 5);
}

}  // namespace
}  // namespace orivanta::test
