#include "Apps/Command/RouteDescription.hpp"

#include <gtest/gtest.h>

#include "Apps/Command/Json.hpp"
#include "Apps/Command/Places.hpp"
#include "Source/Directions.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Tests/Apps/Command/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

NodeList nodesNamed(const Venue& venue, const std::vector<std::string>& ids) {
  NodeList nodes;
  for (const std::string& id : ids) nodes.push_back(findRouteEnd(venue, {id}).nodes.front());
  return nodes;
}

TEST(RouteDescription, TellsFloorsRidesLengthAndWeight) {
  const auto venue = test::TwoFloorVenue().load(/*accessible=*/true);
  const RouteEnd from = findRouteEnd(*venue, {"Bakery"});
  const RouteEnd to = findRouteEnd(*venue, {"Book Shop"});
  const auto route =
      describeRoute(*venue, getDirections(from.nodes, to.nodes, from.place, to.place));
  EXPECT_EQ(jsonText(routeJson(route)),
            R"({"path":["n1","n2","n3","u1","u2"],)"
            R"("directions":[{"node":"n1","action":"departure","location":"l1",)"
            R"("instruction":"Depart from Bakery"},{"node":"u2","action":"arrival",)"
            R"("location":"l2","instruction":"Arrive at Book Shop"}],)"
            R"("floors":[{"id":"g","name":"Ground","shortName":"G"},)"
            R"({"id":"f1","name":"First","shortName":"F1"}],)"
            R"("connectors":[{"id":"lift","name":"Lift A","type":"elevator","accessible":true,)"
            R"("from":"g","to":"f1"}],"length":9,"lengthMetres":4.5,"weight":31})");
}

TEST(RouteDescription, LengthInMetresNeedsAPositiveScale) {
  for (const char* scale : {"0", "-2", "\"2\"", "null"}) {
    test::TwoFloorVenue small;
    small.venue =
        R"({"id": "v", "slug": "s", "name": "n", "unitsPerMetre": )" + std::string(scale) + "}";
    const auto venue = small.load();
    const auto route = describeRoute(*venue, Directions::make(nodesNamed(*venue, {"n1", "n2"})));
    EXPECT_FALSE(route.lengthMetres) << scale;
    EXPECT_EQ(routeText(route), "Floors:  G\nLength:  3.0 units\n");
  }
}

TEST(RouteDescription, StopsOfOneRideAreOne) {
  test::TwoFloorVenue small;
  small.maps = R"([{"id": "g", "shortName": "G"}, {"id": "f1", "shortName": "F1", "elevation": 1},
                   {"id": "f2", "shortName": "F2", "elevation": 2}])";
  small.nodes =
      R"([{"id": "a0", "map": "g", "x": 0, "y": 0}, {"id": "a1", "map": "f1", "x": 0, "y": 0},
                    {"id": "a2", "map": "f2", "x": 0, "y": 0}])";
  small.vortices = R"([
      {"id": "x", "name": "X", "type": "lift", "nodes": ["a0", "a1"]},
      {"id": "y", "name": "Y", "type": "lift", "nodes": ["a0", "a1", "a2"], "weight": 3}])";
  const auto venue = small.load();
  const auto rides = [&](const std::vector<std::string>& path) {
    std::string text;
    for (const Ride& ride : describeRoute(*venue, Directions::make(nodesNamed(*venue, path))).rides)
      text += *ride.connector->name + ":" + ride.from->shortName + "-" + ride.to->shortName + " ";
    return text;
  };
  EXPECT_EQ(rides({"a2", "a1", "a2"}), "Y:F2-F2 ");
  EXPECT_EQ(rides({"a0", "a1", "a2"}), "X:G-F1 Y:F1-F2 ");  // X is the cheaper of two up to F1
  EXPECT_EQ(rides({"a0"}), "");
}

TEST(RouteDescription, OfParallelEdgesTheCheapestCountsAndTheFirstAmongEquals) {
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
  EXPECT_EQ(pathWeight(graph, nodesNamed(*venue, {"n1", "n2"})), 4.0);
  EXPECT_EQ(pathWeight(graph, nodesNamed(*venue, {"n1", "n3"})), 0.0);
}

}  // namespace
}  // namespace orivanta::command
