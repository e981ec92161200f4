// The recorded routes of real buildings: path, cost and number of taken nodes of each.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "Source/NavigationGraph.hpp"
#include "Source/VenueJoin.hpp"
#include "Tests/Support/RecordedRoutes.hpp"
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

TEST(RecordedRoutes, AreFoundExactly) {
  if (!test::venuesFolder()) GTEST_SKIP() << "no venues";
  for (const std::string& name : test::venueNames()) {
    const auto package = *test::venuesFolder() / name;
    const auto routes = test::recordedRoutes(package);
    EXPECT_GE(routes.size(), 150U) << name;
    const bool asListed = name == "tie-grid";
    const Building all = joined(package, false, asListed);
    const Building accessible = joined(package, true, asListed);
    for (std::size_t i = 0; i < routes.size(); ++i) {
      SCOPED_TRACE(name + ", route " + std::to_string(i));
      const Building& building = routes[i].accessible ? accessible : all;
      test::expectRecordedRoute(routes[i], building.nodes, *building.graph);
    }
  }
}

}  // namespace
}  // namespace orivanta
