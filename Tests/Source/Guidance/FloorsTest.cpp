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
  const Location& hall = *venue->locations->front();
  EXPECT_EQ(floorLabels(floorsOf(hall)), "G, F1");
  EXPECT_EQ(floorLabels(floorsFromTop(*venue->maps)), "F1, G");
  for (const auto& floor : *venue->maps) EXPECT_TRUE(isOnFloor(hall, *floor));
}

TEST(Floors, AreNamedByTheFirstTextThatTheyHave) {
  struct Case {
    const char* record;
    const char* label;
    const char* name;
  };
  for (const Case& each :
       {Case{R"({"id": "f", "name": "Ground Floor", "shortName": "G"})", "G", "Ground Floor"},
        {R"({"id": "f", "name": "Ground\nFloor"})", "Ground Floor", "Ground Floor"},
        {R"({"id": "f", "shortName": "G"})", "G", "G"},
        {R"({"id": "f"})", "f", "f"}}) {
    const auto floor = Map::make(*RawData::parse(each.record));
    EXPECT_EQ(floorLabel(*floor), each.label) << each.record;
    EXPECT_EQ(floorName(*floor), each.name) << each.record;
  }
}

TEST(Floors, AreFoundByTheirTextsTheExactOneFirst) {
  FloorList floors;
  for (const char* record : {R"({"id": "1", "name": "b1", "shortName": "Deck"})",
                             R"({"id": "2", "name": "Basement", "shortName": "B1"})"})
    floors.push_back(Map::make(*RawData::parse(record)));
  const std::pair<const char*, int> cases[] = {
      {"B1", 1}, {"b1", 0}, {"Ｂ１", 0}, {"BASEMENT", 1}, {"2", 1}, {"deck", 0}, {"attic", -1}};
  for (const auto& [text, index] : cases)
    EXPECT_EQ(floorNamed(floors, text), index < 0 ? nullptr : floors.at(index)) << text;
}

}  // namespace
}  // namespace orivanta
