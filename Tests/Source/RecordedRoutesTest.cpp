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

struct RecordedRoute {
  bool accessible;
  std::vector<std::string> starts;
  std::vector<std::string> destinations;
  std::vector<std::string> path;  ///< empty if there is no route
  double cost;                    ///< of the search at the destination; 0 if there is no route
  double weight;                  ///< of the path, with the cheapest edge for each step
  std::size_t takenNodes;
};

std::vector<std::string> textsOf(const RawData& list) {
  std::vector<std::string> texts;
  for (const RawData& element : list.arrayValue()) texts.push_back(element.stringForce());
  return texts;
}

// Parses a recorded number: the shortest text of the double, or "inf" for infinity.
double doubleOf(const RawData& text) { return std::strtod(text.stringValue().c_str(), nullptr); }

NodeList nodesOf(const Collection<Node>& nodes, const std::vector<std::string>& identifiers) {
  NodeList list;
  for (const std::string& identifier : identifiers) list.push_back(nodes.at(identifier));
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

std::vector<RecordedRoute> recordedRoutes(const std::filesystem::path& package) {
  std::vector<RecordedRoute> routes;
  const auto document = RawData::parse(test::contentsOf(package / "golden.json"));
  if (!document) return routes;
  for (const RawData& query : (*document)["queries"].arrayValue())
    routes.push_back({query["accessible"].bool_().value(), textsOf(query["start"]),
                      textsOf(query["destination"]), textsOf(query["path"]),
                      doubleOf(query["cost"]), doubleOf(query["weight"]),
                      static_cast<std::size_t>(query["taken"].doubleForce())});
  return routes;
}

void expectRecordedRoute(const RecordedRoute& recorded, const Collection<Node>& nodes,
                         const NavigationGraph& graph) {
  const auto route =
      searchRoute(nodesOf(nodes, recorded.starts), nodesOf(nodes, recorded.destinations), graph);
  ASSERT_EQ(route.has_value(), !recorded.path.empty());
  if (!route) return;
  EXPECT_EQ(route->path, nodesOf(nodes, recorded.path));
  EXPECT_EQ(route->cost, recorded.cost);
  EXPECT_EQ(weightOf(route->path, graph), recorded.weight);
  EXPECT_EQ(route->takenNodes, recorded.takenNodes);
}

struct Building {
  Collection<Node> nodes;
  std::shared_ptr<NavigationGraph> graph;
};

// `asListed` keeps the connectors in file order; otherwise the accessible ones come first.
Building joined(const std::filesystem::path& package, bool accessible, bool asListed) {
  CollectionDictionary collections = test::readPackage(package);
  for (const auto& join : {linkCategoryParents, linkLocationCategories, linkPolygonMaps,
                           linkNodeMaps, linkPolygonEntrances})
    EXPECT_TRUE(join(collections));
  EXPECT_TRUE(linkVortexNodes(collections, accessible));
  if (asListed)
    collections.navigationGraph =
        std::make_shared<NavigationGraph>(*collections.nodes, *collections.vortices, accessible);
  return {*collections.nodes, collections.navigationGraph};
}

TEST(RecordedRoutes, AreFoundExactly) {
  if (!test::venuesFolder()) GTEST_SKIP() << "the real venues are not available";
  for (const std::string& name : test::venueNames()) {
    const auto package = *test::venuesFolder() / name;
    const auto routes = recordedRoutes(package);
    EXPECT_GE(routes.size(), 150U) << name;
    const bool asListed = name == "tie-grid";
    const Building all = joined(package, false, asListed);
    const Building accessible = joined(package, true, asListed);
    for (std::size_t i = 0; i < routes.size(); ++i) {
      SCOPED_TRACE(name + ", route " + std::to_string(i));
      const Building& building = routes[i].accessible ? accessible : all;
      expectRecordedRoute(routes[i], building.nodes, *building.graph);
    }
  }
}

}  // namespace
}  // namespace orivanta
