#include "Source/Guidance/Follower.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Source/Guidance/SimulatedWalk.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::guidance {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Floor g, from above; the way crosses itself. One unit is a meter.
//
//                d---c    20
//                |   |
//   a------------+---b=====k (floor h)   0
//                |
//                e        -20       lift to f on floor h, which passes floor m; then h1
//   0            20  40   70
class FollowerTest : public testing::Test {
 protected:
  FollowerTest() {
    test::TwoFloorVenue records;
    records.venue = R"({"id": "v", "slug": "s", "name": "V", "unitsPerMetre": 1})";
    records.maps = R"([{"id": "g", "elevation": 0}, {"id": "m", "elevation": 5},
                       {"id": "h", "elevation": 10}])";
    records.nodes = R"([
        {"id": "a", "map": "g", "x": 0, "y": 0, "paths": [{"node": "b"}]},
        {"id": "b", "map": "g", "x": 40, "y": 0, "paths": [{"node": "c"}]},
        {"id": "c", "map": "g", "x": 40, "y": 20, "paths": [{"node": "d"}]},
        {"id": "d", "map": "g", "x": 20, "y": 20, "paths": [{"node": "e"}]},
        {"id": "e", "map": "g", "x": 20, "y": -20},
        {"id": "f", "map": "h", "x": 20, "y": -20, "paths": [{"node": "h1"}]},
        {"id": "h1", "map": "h", "x": 30, "y": -20},
        {"id": "k", "map": "h", "x": 70, "y": 0}])";
    records.vortices = R"([
        {"id": "lift", "name": "Lift", "type": "elevator", "nodes": ["e", "f"]},
        {"id": "escalator", "name": "E", "type": "escalator", "nodes": ["b", "k"]}])";
    records.locations = "[]";
    venue_ = records.load();
    guide_ = Guide::make(*venue_);
  }

  Follower follow(const std::vector<std::string>& names) const {
    NodeList path;
    for (const std::string& name : names)
      for (const auto& node : *venue_->nodes)
        if (node->id == name) path.push_back(node);
    return Follower(*guide_, guide_->itinerary(path).value());
  }

  Position at(const std::string& map, double x, double y) const {
    for (const auto& each : *venue_->maps)
      if (each->id == map) return {each, x, y};
    return {nullptr, x, y};
  }

  std::shared_ptr<Venue> venue_;
  std::shared_ptr<const Guide> guide_;
};

TEST_F(FollowerTest, FollowsARouteThatCrossesItself) {
  Follower follower = follow({"a", "b", "c", "d", "e", "f", "h1"});
  using Kind = Step::Kind;
  const struct {
    const char* map;
    double x, y, seconds;
    std::size_t leg;
    double metersLeft;
    Kind step;
    double metersToStep;
    bool offRoute = false, arrived = false, announced = true;
  } cases[] = {
      {"g", 0, 0, 0, 0, 130, Kind::depart, 0},
      {"g", 9, 0, 9, 0, 121, Kind::turn, 31, false, false, false},
      {"g", 20, 1, 20, 0, 110, Kind::turn, 20},
      {"g", 38, 1, 38, 0, 92, Kind::turn, 2},
      {"g", 40, 10, 50, 0, 80, Kind::turn, 10},
      {"g", 30, 20, 70, 0, 60, Kind::turn, 10},
      {"g", 20, 1, 99, 0, 31, Kind::ride, 21},  // the crossing again
      {"g", 20, -8, 105, 0, 22, Kind::ride, 12},
      {"g", 35, -12, 106, 0, 22, Kind::ride, 12},
      {"g", 35, -12, 107.9, 0, 22, Kind::ride, 12},
      {"g", 35, -12, 108, 0, 22, Kind::ride, 12, true},
      {"h", 20, -8, 109, 0, 22, Kind::ride, 12, true},
      {"x", 20, -8, 110, 0, 22, Kind::ride, 12, true},
      {"g", nan, -8, 110, 0, 22, Kind::ride, 12, true},
      {"g", 20, -9, nan, 0, 21, Kind::ride, 11},
      {"g", 20, -20, 90, 1, 10, Kind::ride, 0},  // a time that goes back
      {"m", 21, -20, 140, 1, 10, Kind::ride, 0},
      {"m", 21, -20, 150, 1, 10, Kind::ride, 0},
      {"h", 21, -20, 160, 2, 9, Kind::arrive, 9, false, false, false},
      {"h", 27, -20, 170, 2, 3, Kind::arrive, 3, false, true},
  };
  for (const auto& each : cases) {
    const std::size_t row = static_cast<std::size_t>(&each - cases);
    const Progress& progress = follower.update(at(each.map, each.x, each.y), each.seconds);
    EXPECT_EQ(progress.leg, each.leg) << row;
    EXPECT_NEAR(progress.metersLeft, each.metersLeft, 1e-9) << row;
    EXPECT_EQ(follower.steps()[progress.step].kind, each.step) << row;
    EXPECT_NEAR(progress.metersToStep, each.metersToStep, 1e-9) << row;
    EXPECT_EQ(progress.offRoute, each.offRoute) << row;
    EXPECT_EQ(progress.arrived, each.arrived) << row;
    EXPECT_EQ(progress.announced, progress.step - (each.announced ? 0 : 1)) << row;
  }
}

TEST_F(FollowerTest, StaysOnALongEscalatorAndArrivesAtItsEnd) {
  for (const char* floor : {"g", "h"}) {
    Follower follower = follow({"a", "b", "k"});
    follower.update(at("g", 40, 0), 0);
    EXPECT_EQ(follower.progress().metersLeft, 0.0);
    EXPECT_FALSE(follower.progress().arrived);
    follower.update(at(floor, 55, 1), 20);
    follower.update(at(floor, 55, 1), 40);
    EXPECT_EQ(follower.progress().leg, 1U);
    EXPECT_FALSE(follower.progress().offRoute || follower.progress().arrived);
    EXPECT_TRUE(follower.update(at("h", 70, 0), 60).arrived);
  }
}

TEST_F(FollowerTest, APositionOnTheRouteIsNeverOffIt) {
  Follower follower = follow({"a", "b", "c", "d", "e", "f", "h1"});
  follower.update(at("g", 40, 12), 0);
  follower.update(at("g", 31, 1), 1);  // 9 m from the last place, but on an earlier part
  EXPECT_FALSE(follower.update(at("g", 31, 0), 9).offRoute);
}

TEST_F(FollowerTest, ASimulatedTravelerTakesTheExpectedTime) {
  Itinerary itinerary = follow({"a", "b", "c", "d", "e", "f", "h1"}).itinerary();
  itinerary.legs[0].nodes[0]->z = 4;
  itinerary.legs[0].seconds = 240;  // for 120 m
  itinerary.legs[1].seconds = 20;   // the lift
  itinerary.legs[2].seconds = nan;
  const SimulatedWalk walk(itinerary);
  EXPECT_EQ(walk.seconds(), 260.0);
  const struct {
    double seconds;
    const char* map;
    double x, y, z;
  } cases[] = {{nan, "g", 0, 0, 4},    {-1, "g", 0, 0, 4},      {60, "g", 30, 0, 1},
               {100, "g", 40, 10, 0},  {250, "g", 20, -20, 0},  {259.9, "g", 20, -20, 0},
               {260, "h", 30, -20, 0}, {1e300, "h", 30, -20, 0}};
  for (const auto& each : cases) {
    const SimulatedWalk::Point point = walk.at(each.seconds);
    EXPECT_EQ(*point.position.map->id, each.map) << each.seconds;
    EXPECT_NEAR(point.position.x, each.x, 1e-9) << each.seconds;
    EXPECT_NEAR(point.position.y, each.y, 1e-9) << each.seconds;
    EXPECT_NEAR(point.z, each.z, 1e-9) << each.seconds;
  }
  EXPECT_EQ(SimulatedWalk(Itinerary()).at(1.0).position.map, nullptr);
}

TEST_F(FollowerTest, FollowsAnItineraryWithoutLegs) {
  Follower follower(*guide_, Itinerary());
  EXPECT_FALSE(follower.update(at("g", 1, 1), 0).offRoute);
  EXPECT_TRUE(follower.update(at("g", 1, 1), 3).offRoute);
  EXPECT_FALSE(follower.progress().arrived);
}

}  // namespace
}  // namespace orivanta::guidance
