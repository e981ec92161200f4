#include "Source/Guidance/PathWalk.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Source/NavigationGraph.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

TEST(PathWalk, AddsUpLengthsCostsAndRides) {
  test::TwoFloorVenue small;
  small.maps = R"([{"id": "g"}, {"id": "f1", "elevation": 1}, {"id": "f2", "elevation": 2}])";
  small.nodes = R"([
      {"id": "a", "map": "g", "x": 0, "y": 0, "paths": [{"node": "b"}, {"node": "b"}]},
      {"id": "b", "map": "g", "x": 3, "y": 4, "paths": [{"node": "a"}]},
      {"id": "c", "map": "f1", "x": 0, "y": 0}, {"id": "d", "map": "f2", "x": 0, "y": 0}])";
  small.vortices = R"([
      {"id": "x", "name": "X", "type": "lift", "nodes": ["a", "c"]},
      {"id": "y", "name": "Y", "type": "lift", "nodes": ["a", "c", "d"], "weight": 3}])";
  const auto venue = small.load();
  const NavigationGraph& graph = *venue->navigationGraph;
  const auto node = [&](char name) {
    return venue->nodes->at(static_cast<std::size_t>(name - 'a'));
  };
  struct Case {
    const char* path;
    double length;
    double weight;  // a ride on Y costs 3 per floor, plus 3
    const char* rides;
  };
  for (const Case& each : {Case{"", 0, 0, ""},
                           {"a", 0, 0, ""},
                           {"dcd", 0, 12, "Y:0-2 "},       // a ride with an intermediate stop
                           {"acd", 0, 7, "X:0-1 Y:1-2 "},  // the cheaper of two edges
                           {"dabad", 10, 28, "Y:0-1 Y:3-4 "},
                           {"bca", 0, 1, "X:1-2 "}}) {  // no edge from b to c
    NodeList path;
    for (const char name : std::string_view(each.path)) path.push_back(node(name));
    const PathWalk walk(path, graph);
    EXPECT_EQ(walk.length(), each.length) << each.path;
    EXPECT_EQ(walk.weight(), each.weight) << each.path;
    std::string rides;
    for (const Ride& ride : walk.rides())
      rides += fmt::format("{}:{}-{} ", *ride.connector->name, ride.begin, ride.end);
    EXPECT_EQ(rides, each.rides) << each.path;
  }
  EXPECT_EQ(cheapestEdge(graph, *node('a'), *node('b')), &graph[*node('a')][0]) << "of equals";
  const PathWalk walk({node('d'), node('a'), node('b'), node('c')}, graph);
  EXPECT_EQ(walk.lengthBetween(0, 2), 5.0);
  EXPECT_EQ(walk.lengthBetween(2, 3), 0.0);
  EXPECT_FALSE(walk.stretches()[2].hasEdge);
}

TEST(PathWalk, AnInstructionSaysTheWayOnce) {
  const auto venue = test::TwoFloorVenue().load();
  const Map& ground = *venue->maps->front();
  const Map& first = *venue->maps->back();
  Vortex& lift = *venue->vortices->front();
  EXPECT_EQ(rideInstruction(lift, ground, first), "Take Lift A up to First");
  EXPECT_EQ(rideInstruction(lift, first, ground), "Take Lift A down to Ground");
  EXPECT_EQ(rideInstruction(lift, first, first), "Take Lift A to First");
  lift.name = "Stairs up to the roof";
  EXPECT_EQ(rideInstruction(lift, ground, first), "Take Stairs up to the roof");
}

}  // namespace
}  // namespace orivanta
