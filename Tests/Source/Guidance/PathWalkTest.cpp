#include "Source/Guidance/PathWalk.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "Source/NavigationGraph.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

NodeList nodesNamed(const Venue& venue, const std::vector<std::string>& ids) {
  NodeList nodes;
  for (const std::string& id : ids)
    nodes.push_back(*std::find_if(venue.nodes->begin(), venue.nodes->end(),
                                  [&](const auto& node) { return node->id == id; }));
  return nodes;
}

PathWalk walkOf(const Venue& venue, const std::vector<std::string>& ids) {
  return {nodesNamed(venue, ids), *venue.navigationGraph};
}

// As "connector begin-end".
std::string ridesOf(const PathWalk& walk) {
  std::string text;
  for (const Ride& ride : walk.rides())
    text += fmt::format("{} {}-{} ", *ride.connector->name, ride.begin, ride.end);
  return text;
}

TEST(PathWalk, StopsOfOneRideAreOne) {
  test::TwoFloorVenue small;
  small.maps = R"([{"id": "g"}, {"id": "f1", "elevation": 1}, {"id": "f2", "elevation": 2}])";
  small.nodes = R"([
      {"id": "a0", "map": "g", "x": 0, "y": 0, "paths": [{"node": "b0"}]},
      {"id": "b0", "map": "g", "x": 3, "y": 4, "paths": [{"node": "a0"}]},
      {"id": "a1", "map": "f1", "x": 0, "y": 0}, {"id": "a2", "map": "f2", "x": 0, "y": 0}])";
  small.vortices = R"([
      {"id": "x", "name": "X", "type": "lift", "nodes": ["a0", "a1"]},
      {"id": "y", "name": "Y", "type": "lift", "nodes": ["a0", "a1", "a2"], "weight": 3}])";
  const auto venue = small.load();
  EXPECT_EQ(ridesOf(walkOf(*venue, {"a2", "a1", "a2"})), "Y 0-2 ");
  EXPECT_EQ(ridesOf(walkOf(*venue, {"a0", "a1", "a2"})), "X 0-1 Y 1-2 ");  // X is the cheaper one
  EXPECT_EQ(ridesOf(walkOf(*venue, {"a0"})), "");
  const PathWalk walk = walkOf(*venue, {"a2", "a0", "b0", "a0", "a2"});
  EXPECT_EQ(ridesOf(walk), "Y 0-1 Y 3-4 ");
  EXPECT_EQ(walk.length(), 10.0);
  EXPECT_EQ(walk.lengthBetween(0, 2), 5.0);
  EXPECT_EQ(walk.weight(), 28.0);  // a ride of two floors costs 2 * 3 + 3
}

TEST(PathWalk, OfParallelEdgesTheCheapestCountsAndTheFirstAmongEquals) {
  test::TwoFloorVenue small;
  small.nodes = R"([
      {"id": "n1", "map": "g", "x": 0, "y": 0,
       "paths": [{"node": "n2"}, {"node": "n2"}, {"node": "n3"}]},
      {"id": "n2", "map": "g", "x": 4, "y": 0}, {"id": "n3", "map": "g", "x": 9, "y": 0}])";
  small.vortices = R"([{"id": "belt", "name": "Belt", "type": "belt", "nodes": ["n1", "n3"]}])";
  const auto venue = small.load();
  const NavigationGraph& graph = *venue->navigationGraph;
  const NodeList nodes = nodesNamed(*venue, {"n1", "n2", "n3"});
  EXPECT_EQ(cheapestEdge(graph, *nodes[0], *nodes[1]), &graph[*nodes[0]][0]);
  EXPECT_EQ(*cheapestEdge(graph, *nodes[0], *nodes[2])->vortex()->id, "belt");
  EXPECT_EQ(cheapestEdge(graph, *nodes[1], *nodes[0]), nullptr);
  const PathWalk walk(nodes, graph);  // from n2 to n3 no edge leads
  EXPECT_EQ(walk.weight(), 4.0);
  EXPECT_FALSE(walk.stretches()[1].hasEdge);
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
