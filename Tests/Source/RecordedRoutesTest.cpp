// Tests with recorded routes of real buildings: path, cost and number of taken nodes of each.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <string>

#include "Source/Loading/VenueJoin.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

// Parses a recorded number: the shortest text of the double, or "inf" for infinity.
double doubleOf(const RawData& text) { return std::strtod(text.stringValue().c_str(), nullptr); }

NodeList nodesOf(const Collection<Node>& nodes, const RawData& identifiers) {
  NodeList list;
  for (const RawData& each : identifiers.arrayValue()) list.push_back(nodes.at(each.stringForce()));
  return list;
}

double weightOf(const NodeList& path, const NavigationGraph& graph) {
  double weight = 0.0;
  for (std::size_t i = 1; i < path.size(); ++i) {
    double cheapest = std::numeric_limits<double>::infinity();
    for (const Edge& edge : graph[*path[i - 1]])
      if (edge.node() == path[i]) cheapest = std::min(cheapest, edge.weight());
    weight += cheapest;
  }
  return weight;
}

// `asListed` keeps the connectors in file order; otherwise the accessible ones come first.
CollectionDictionary joined(const std::filesystem::path& package, bool accessible, bool asListed) {
  CollectionDictionary collections = test::readPackage(package);
  for (const auto& join : {linkCategoryParents, linkLocationCategories, linkPolygonMaps,
                           linkNodeMaps, linkPolygonEntrances})
    EXPECT_TRUE(join(collections));
  EXPECT_TRUE(linkVortexNodes(collections, accessible));
  if (asListed)
    collections.navigationGraph =
        std::make_shared<NavigationGraph>(*collections.nodes, *collections.vortices, accessible);
  return collections;
}

TEST(RecordedRoutes, AreFoundExactly) {
  if (!test::venuesFolder()) GTEST_SKIP() << "the real venues are not available";
  for (const std::string& name : test::venueNames()) {
    const auto package = *test::venuesFolder() / name;
    const auto recorded = *RawData::parse(test::contentsOf(package / "golden.json"));
    const auto queries = recorded["queries"].arrayValue();
    EXPECT_GE(queries.size(), 150U) << name;
    const bool asListed = name == "tie-grid";
    const CollectionDictionary buildings[] = {joined(package, false, asListed),
                                              joined(package, true, asListed)};
    for (std::size_t i = 0; i < queries.size(); ++i) {
      SCOPED_TRACE(name + ", route " + std::to_string(i));
      const RawData& query = queries[i];
      const auto& building = buildings[query["accessible"].bool_().value() ? 1 : 0];
      const Collection<Node>& nodes = *building.nodes;
      const NavigationGraph& graph = *building.navigationGraph;
      const auto route =
          searchRoute(nodesOf(nodes, query["start"]), nodesOf(nodes, query["destination"]), graph);
      ASSERT_EQ(route.has_value(), !query["path"].arrayValue().empty());
      if (!route) continue;
      EXPECT_EQ(route->path, nodesOf(nodes, query["path"]));
      EXPECT_EQ(route->cost, doubleOf(query["cost"]));
      EXPECT_EQ(weightOf(route->path, graph), doubleOf(query["weight"]));
      EXPECT_EQ(static_cast<double>(route->takenNodes), query["taken"].doubleForce());
    }
  }
}

}  // namespace
}  // namespace orivanta
