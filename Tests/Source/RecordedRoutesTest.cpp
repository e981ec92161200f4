// The recorded routes of real buildings: path, cost and number of taken nodes of each.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "Source/NavigationGraph.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/VenueJoin.hpp"
#include "Tests/Support/Networks.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

struct Building {
  Collection<Node> nodes;
  std::shared_ptr<NavigationGraph> graph;
};

// `asListed` takes the connectors in the order of their file, without the accessible ones first.
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

NodeList listOf(const Collection<Node>& nodes, const RawData& identifiers) {
  NodeList list;
  for (const RawData& identifier : identifiers.arrayValue())
    list.push_back(nodes.at(identifier.stringForce()));
  return list;
}

void expectRoute(const Building& building, const RawData& query) {
  const auto route = searchRoute(listOf(building.nodes, query["start"]),
                                 listOf(building.nodes, query["destination"]), *building.graph);
  ASSERT_EQ(route.has_value(), !query["path"].arrayValue().empty());
  if (!route) return;
  EXPECT_EQ(route->path, listOf(building.nodes, query["path"]));
  EXPECT_EQ(route->cost, std::strtod(query["cost"].stringForce().c_str(), nullptr));
  EXPECT_EQ(static_cast<double>(route->takenNodes), query["taken"].doubleForce());
}

TEST(RecordedRoutes, AreFoundExactly) {
  if (!test::venuesFolder()) GTEST_SKIP() << "no venues";
  for (const std::string& name : test::venueNames()) {
    const auto package = *test::venuesFolder() / name;
    const auto golden = RawData::parse(test::contentsOf(package / "golden.json"));
    ASSERT_TRUE(golden) << name;
    const bool asListed = name == "tie-grid";
    const Building all = joined(package, false, asListed);
    const Building accessible = joined(package, true, asListed);
    const auto queries = (*golden)["queries"].arrayValue();
    EXPECT_GE(queries.size(), 150U) << name;
    for (std::size_t i = 0; i < queries.size(); ++i) {
      SCOPED_TRACE(name + ", query " + std::to_string(i));
      expectRoute(queries[i]["accessible"].bool_().value() ? accessible : all, queries[i]);
    }
  }
}

}  // namespace
}  // namespace orivanta
