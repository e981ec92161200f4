#include "Source/NavigationGraph.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta {
namespace {

using test::DrawnNetwork;
using test::makeNode;
using test::namesOf;

std::shared_ptr<Node> nodeOf(const std::string& id, const std::string& paths) {
  return Node::make(
      *RawData::parse(R"({"id": ")" + id + R"(", "x": 0, "y": 0, "paths": )" + paths + "}"));
}

Collection<Node> collectionOf(const NodeList& nodes) {
  Collection<Node> collection;
  for (const auto& node : nodes) collection.insert({*node->id, node});
  return collection;
}

std::string destinationsOf(const NavigationGraph& graph, const Node& node) {
  std::string names;
  for (const Edge& edge : graph[node]) names += (edge.vortex() ? "+" : "") + *edge.node()->id;
  return names;
}

std::shared_ptr<Vortex> vortexOf(const std::string& id, bool accessible, NodeList nodes) {
  auto vortex =
      Vortex::make(*RawData::parse(R"({"id": ")" + id + R"(", "name": "Lift", "type": "lift"})"));
  vortex->accessible = accessible;
  vortex->nodes = std::move(nodes);
  return vortex;
}

std::shared_ptr<Map> mapAt(double elevation) {
  auto map = Map::make(*RawData::parse(R"({"id": "floor"})"));
  map->elevation = elevation;
  return map;
}

TEST(Edge, WalkingCostsWhatTheDestinationMakesOfTheDistance) {
  const auto origin = makeNode(1, 2, 3);
  origin->multiplierWeight = 100;
  origin->constantWeight = 100;
  const auto destination = makeNode(4, 6, 15);
  struct {
    double multiplier, constant, weight;
  } const cases[] = {{1, 0, 13}, {2, 5, 31}, {0, 7, 7}};
  for (const auto& test : cases) {
    destination->multiplierWeight = test.multiplier;
    destination->constantWeight = test.constant;
    const Edge edge(*origin, destination);
    EXPECT_EQ(edge.node(), destination);
    EXPECT_EQ(edge.vortex(), nullptr);
    EXPECT_EQ(edge.distance(), 13.0);
    EXPECT_EQ(edge.weight(), test.weight);
  }
}

TEST(Edge, RidingCostsWhatTheConnectorMakesOfTheElevations) {
  const auto below = makeNode(0, 0);
  const auto above = makeNode(1000, 1000);
  below->map = mapAt(0);
  above->map = mapAt(10);
  const auto lift = vortexOf("lift", true, {});
  lift->multiplierWeight = 2;
  lift->constantWeight = 5;
  for (const Edge& edge : {Edge(*below, above, lift), Edge(*above, below, lift)}) {
    EXPECT_EQ(edge.vortex(), lift);
    EXPECT_EQ(edge.distance(), 0.0);
    EXPECT_EQ(edge.weight(), 25.0);
  }
  EXPECT_EQ(Edge(*below, below, lift).weight(), 5.0);
  above->map = nullptr;
  EXPECT_DEATH(Edge(*below, above, lift), "unexpectedly found nil while unwrapping");
}

TEST(NavigationGraph, WalkingEdgesFollowThePaths) {
  struct {
    const char* paths;
    const char* edges;
  } const cases[] = {
      {R"([{"node": "B"}, {"node": "C"}])", "BC"},
      {R"([{"node": "C"}, {"node": "B"}, {"node": "C"}])", "CBC"},
      {R"([{"node": "A"}])", "A"},
      {R"([{"node": "unknown"}, {"node": "B"}])", "B"},
      {R"([{"node": "unknown"}])", ""},
      {R"([{"way": "B"}, "B", null, {"node": 1}])", ""},
      {R"({"node": "B"})", ""},
      {"null", ""},
  };
  for (const auto& test : cases) {
    const NodeList nodes = {nodeOf("A", test.paths), nodeOf("B", "[]"), nodeOf("C", "[]")};
    const NavigationGraph graph(collectionOf(nodes), {}, false);
    EXPECT_EQ(destinationsOf(graph, *nodes[0]), test.edges) << test.paths;
    EXPECT_EQ(graph.graph().size(), *test.edges == 0 ? 0U : 1U) << test.paths;
  }
}

TEST(NavigationGraph, ConnectorsJoinAllTheirNodesAfterTheWalkingEdges) {
  const NodeList nodes = {nodeOf("A", R"([{"node": "B"}])"), nodeOf("B", "[]"), nodeOf("C", "[]"),
                          nodeOf("D", "[]")};
  for (const auto& node : nodes) node->map = mapAt(0);
  Collection<Vortex> vortices;
  vortices.insert({"1", vortexOf("1", true, {nodes[2], nodes[0], nodes[1]})});
  vortices.insert({"2", vortexOf("2", true, {nodes[0], nodes[3]})});
  vortices.insert({"3", vortexOf("3", true, {})});
  const NavigationGraph graph(collectionOf(nodes), vortices, false);
  EXPECT_EQ(destinationsOf(graph, *nodes[0]), "B+C+A+B+A+D");
  EXPECT_EQ(destinationsOf(graph, *nodes[1]), "+C+A+B");
  EXPECT_EQ(destinationsOf(graph, *nodes[2]), "+C+A+B");
  EXPECT_EQ(destinationsOf(graph, *nodes[3]), "+A+D");
}

TEST(NavigationGraph, AnAccessibleGraphStopsAtTheFirstConnectorThatIsNot) {
  const NodeList nodes = {nodeOf("A", "[]"), nodeOf("B", "[]"), nodeOf("C", "[]")};
  for (const auto& node : nodes) node->map = mapAt(0);
  Collection<Vortex> vortices;
  for (const auto& node : nodes)
    vortices.insert({*node->id, vortexOf(*node->id, node != nodes[1], {node})});
  const auto connected = [&](bool accessible) {
    const NavigationGraph graph(collectionOf(nodes), vortices, accessible);
    std::string names;
    for (const auto& entry : graph.graph()) names += *entry.first->id;
    return names;
  };
  EXPECT_EQ(connected(true), "A");
  EXPECT_EQ(connected(false), "ABC");
}

TEST(NavigationGraph, SearchesSeeTheGraphThatWasSetLast) {
  DrawnNetwork network("A-B-C");
  ASSERT_TRUE(AStar(network("A"), network("C"), *network.graph));
  auto changed = network.graph->graph();
  changed.erase(network("B").front());
  network.graph->setGraph(changed);
  EXPECT_FALSE(AStar(network("A"), network("C"), *network.graph));
  EXPECT_EQ(namesOf(AStar(network("A"), network("B"), *network.graph).value()), "AB");
  EXPECT_TRUE((*network.graph)[*network("B").front()].empty());
}

TEST(NavigationGraph, ConnectorEdgesAreBounded) {
  const NodeList crowd(1, makeNode(0, 0));
  crowd.front()->map = mapAt(0);
  Collection<Vortex> vortices;
  vortices.insert({"kept", vortexOf("kept", true, NodeList(3, crowd.front()))});
  vortices.insert({"huge", vortexOf("huge", true, NodeList(5000, crowd.front()))});
  vortices.insert({"after", vortexOf("after", true, NodeList(2, crowd.front()))});
  const NavigationGraph graph({}, vortices, false);
  EXPECT_EQ(graph[*crowd.front()].size(), 13U);
}

}  // namespace
}  // namespace orivanta
