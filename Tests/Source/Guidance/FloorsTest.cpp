#include "Source/Guidance/Floors.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

TEST(Floors, OfALocationComeFromNodesAndPolygonsOnceEach) {
  test::TwoFloorVenue small;
  small.locations = R"([{"id": "l", "name": "Hall", "type": "hall",
      "nodes": [{"node": "n1"}, {"node": "n2"}], "polygons": [{"id": "p2"}, {"id": "p1"}]}])";
  const auto venue = small.load(false, true);
  EXPECT_EQ(floorLabels(floorsOf(*venue->locations->front())), "G, F1");
  EXPECT_TRUE(isOnFloor(*venue->locations->front(), *venue->maps->back()));
  EXPECT_EQ(floorLabels(floorsFromTop(*venue->maps)), "F1, G");
}

TEST(Floors, HaveALabelAndANameAndAreFoundByThem) {
  struct Case {
    const char* record;
    const char* label;
    const char* name;
    std::vector<const char*> texts;
  };
  const Case cases[] = {
      {R"({"id": "1", "name": "b1", "shortName": "Deck"})", "Deck", "b1", {"b1", "Ｂ１", "DECK"}},
      {R"({"id": "2", "name": "Basement", "shortName": "B1"})", "B1", "Basement", {"2", "B1"}},
      {R"({"id": "3", "name": "Ground\nFloor"})", "Ground Floor", "Ground Floor", {"3"}},
      {R"({"id": "4", "shortName": "G"})", "G", "G", {"g"}},
      {R"({"id": "f"})", "f", "f", {"f"}}};
  FloorList floors;
  for (const Case& each : cases) floors.push_back(Map::make(*RawData::parse(each.record)));
  for (std::size_t i = 0; i < floors.size(); ++i) {
    EXPECT_EQ(floorLabel(*floors[i]), cases[i].label);
    EXPECT_EQ(floorName(*floors[i]), cases[i].name);
    for (const char* text : cases[i].texts) EXPECT_EQ(floorNamed(floors, text), floors[i]) << text;
  }
  EXPECT_EQ(floorNamed(floors, "attic"), nullptr);
}

}  // namespace
}  // namespace orivanta
