#include "Source/Loading/VenueJoin.hpp"

#include <gmock/gmock.h>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Polygon.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <class Record>
void fill(std::optional<Collection<Record>>& records, const char* json) {
  records = test::recordsIn<Record>(json);
}

template <class Handles>
std::vector<std::string> idsOf(const Handles& records) {
  std::vector<std::string> ids;
  for (const auto& record : records)
    if constexpr (requires { record.lock(); })
      ids.push_back(*record.lock()->id);
    else
      ids.push_back(*record->id);
  return ids;
}

template <class Record>
std::vector<std::string> keysOf(const std::optional<Collection<Record>>& records) {
  std::vector<std::string> keys;
  for (const auto& entry : records.value()) keys.push_back(entry.first);
  return keys;
}

CollectionDictionary twoFloors() {
  CollectionDictionary collections;
  fill(collections.maps, R"([{"id": "m1"}, {"id": "m2"}])");
  fill(collections.nodes, R"([{"id": "a", "x": 0, "y": 0, "map": "m1"},
                              {"id": "b", "x": 3, "y": 4, "map": "m1"},
                              {"id": "c", "x": 0, "y": 0, "map": "m2"}])");
  return collections;
}

TEST(VenueJoin, CategoriesMayBeTheirOwnParentsAndRunInCircles) {
  CollectionDictionary collections;
  fill(collections.categories, R"([{"id": "self", "name": "", "parents": ["self"]},
                                   {"id": "x", "name": "", "parents": ["y", "y"]},
                                   {"id": "y", "name": "", "parents": ["?", null, 3, {}, "x"]},
                                   {"id": "z", "name": "", "parents": "x"}])");
  EXPECT_TRUE(linkCategoryParents(collections));
  const auto& categories = *collections.categories;
  EXPECT_THAT(idsOf(categories.at("self")->parents), ElementsAre("self"));
  EXPECT_THAT(idsOf(categories.at("self")->children), ElementsAre("self"));
  EXPECT_THAT(idsOf(categories.at("x")->parents), ElementsAre("y", "y"));
  EXPECT_THAT(idsOf(categories.at("x")->children), ElementsAre("y"));
  EXPECT_THAT(idsOf(categories.at("y")->parents), ElementsAre("x"));
  EXPECT_THAT(idsOf(categories.at("y")->children), ElementsAre("x", "x"));
  EXPECT_THAT(categories.at("z")->parents, IsEmpty());
}

TEST(VenueJoin, RecordsWithoutAKnownMapAreDroppedAndTheOthersKeepTheirOrder) {
  CollectionDictionary collections;
  fill(collections.maps, R"([{"id": "m"}])");
  fill(collections.nodes, R"([{"id": "1", "x": 0, "y": 0, "map": "m"}, {"id": "2", "x": 0, "y": 0},
                              {"id": "3", "x": 0, "y": 0, "map": "?"},
                              {"id": "4", "x": 0, "y": 0, "map": "m"},
                              {"id": "5", "x": 0, "y": 0, "map": ["m"]},
                              {"id": "6", "x": 0, "y": 0, "map": "m"}])");
  fill(collections.polygons, R"([{"id": "p", "map": null}, {"id": "q", "map": "m"}])");
  EXPECT_TRUE(linkNodeMaps(collections));
  EXPECT_TRUE(linkPolygonMaps(collections));
  EXPECT_THAT(keysOf(collections.nodes), ElementsAre("1", "4", "6"));
  EXPECT_THAT(keysOf(collections.polygons), ElementsAre("q"));
  EXPECT_EQ(collections.polygons->at("q")->map, collections.maps->at("m"));
}

TEST(VenueJoin, ALocationLosesTheEntrancesOfItsOwnPolygonsOnly) {
  CollectionDictionary collections = twoFloors();
  fill(collections.polygons, R"([{"id": "p", "map": "m1", "entrances": [{"id": "a"}, {"id": "a"}]},
                                 {"id": "q", "map": "m1", "entrances": [{"id": "b"}, "c"]}])");
  fill(collections.locations, R"([
    {"id": "l", "name": "", "type": "", "polygons": [{"id": "p"}, {"id": "p"}, {"id": "?"}, "q"],
     "nodes": [{"node": "a"}, {"node": "b"}, {"node": "a"}, {"node": "b"}, "c", {"id": "c"}]},
    {"id": "k", "name": "", "type": "", "nodes": [{"node": "a"}]}])");
  for (const auto task : {linkPolygonMaps, linkNodeMaps, linkPolygonEntrances, linkLocationNodes,
                          linkLocationPolygons})
    EXPECT_TRUE(task(collections));
  const Location& location = *collections.locations->at("l");
  EXPECT_THAT(idsOf(location.nodes), ElementsAre("b", "b"));
  EXPECT_THAT(idsOf(location.polygons), ElementsAre("p", "p"));
  EXPECT_THAT(idsOf(collections.polygons->at("p")->locations), ElementsAre("l", "l"));
  EXPECT_THAT(idsOf(collections.polygons->at("p")->entrances), ElementsAre("a", "a"));
  EXPECT_THAT(idsOf(collections.locations->at("k")->nodes), ElementsAre("a"));
}

TEST(VenueJoin, AnAccessibleGraphHasEveryAccessibleVortexWhereverItStands) {
  CollectionDictionary collections = twoFloors();
  fill(collections.vortices, R"([
    {"id": "stairs", "name": "", "type": "", "nodes": ["a", "c"], "accessible": false},
    {"id": "lift", "name": "", "type": "", "nodes": ["b", "c"]}])");
  EXPECT_TRUE(linkNodeMaps(collections));
  EXPECT_TRUE(linkVortexNodes(collections, true));
  EXPECT_THAT((*collections.navigationGraph)[*collections.nodes->at("a")], IsEmpty());
  EXPECT_EQ((*collections.navigationGraph)[*collections.nodes->at("b")].size(), 2U);
  EXPECT_THAT(keysOf(collections.vortices), ElementsAre("stairs", "lift"));
  EXPECT_TRUE(linkVortexNodes(collections, false));
  EXPECT_FALSE((*collections.navigationGraph)[*collections.nodes->at("a")].empty());
}

TEST(VenueJoinDeathTest, AVortexOnANodeWithoutAMapStopsTheProgram) {
  CollectionDictionary collections = twoFloors();
  fill(collections.vortices, R"([{"id": "v", "name": "", "type": "", "nodes": ["a"]}])");
  EXPECT_DEATH(linkVortexNodes(collections, false), "unexpectedly found nil");
}

}  // namespace
}  // namespace orivanta
