#include "Apps/Command/VenueDescription.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Command/VenueReport.hpp"
#include "Apps/Text/Json.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

std::string treeText(const Venue& venue) {
  std::string text;
  for (const CategoryLine& line : categoryTree(venue))
    text += std::string(line.depth, '.') + *line.category->id + (line.shownAbove ? "^ " : " ");
  return text;
}

TEST(VenueDescription, CategoriesAreATreeWhateverTheirParents) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"[]", ""},
      {R"([{"id": "a", "name": ""}, {"id": "b", "name": "", "parents": ["a"]},
           {"id": "c", "name": "", "parents": ["b"]}, {"id": "d", "name": "", "parents": ["a"]}])",
       "a .b ..c .d "},
      {R"([{"id": "a", "name": "", "parents": ["a"]}])", "a .a^ "},
      {R"([{"id": "a", "name": "", "parents": ["b"]}, {"id": "b", "name": "", "parents": ["a"]},
           {"id": "r", "name": ""}])",
       "r a .b ..a^ "},
      {R"([{"id": "a", "name": ""}, {"id": "b", "name": ""},
           {"id": "c", "name": "", "parents": ["a", "b", "a"]},
           {"id": "d", "name": "", "parents": ["c"]}])",
       "a .c ..d b .c^ "},
  };
  for (const auto& [categories, expected] : cases)
    for (const bool twice : {false, true}) {
      test::TwoFloorVenue small;
      small.categories = categories;
      EXPECT_EQ(treeText(*small.load(false, twice)), expected) << categories;
    }
}

TEST(VenueDescription, ADeepChainOfCategoriesNeedsNoDeepStackAndNoWidePage) {
  test::TwoFloorVenue small;
  small.categories = R"([{"id": "0", "name": "c"})";
  for (int i = 1; i < 20'000; ++i)
    small.categories += fmt::format(R"(,{{"id": "{}", "name": "c", "parents": ["{}"]}})", i, i - 1);
  small.categories += "]";
  const auto venue = small.load();
  EXPECT_EQ(categoryTree(*venue).back().depth, 19'999U);
  EXPECT_LT(venueText(*venue, false).size(), 20'000U * 60);
}

TEST(VenueDescription, ConnectorsAreGroupedByTypeFloorsAndAccess) {
  test::TwoFloorVenue small;
  small.vortices = R"([
      {"id": "s1", "name": "S1", "type": "stairs", "nodes": ["n1", "u1"], "accessible": false},
      {"id": "e1", "name": "E1", "type": "lift", "nodes": ["n1", "u1"]},
      {"id": "s2", "name": "S2", "type": "stairs", "nodes": ["u2", "n2"], "accessible": false},
      {"id": "e2", "name": "E2", "type": "lift", "nodes": ["n1"], "accessible": false},
      {"id": "e3", "name": "E3", "type": "lift", "nodes": []},
      {"id": "e4", "name": "E4", "type": "lift", "nodes": ["n2", "u2"], "accessible": false}])";
  const auto venue = small.load();
  const auto summary = [&](bool accessibleOnly) {
    std::string text;
    for (const ConnectorGroup& group : connectorGroups(*venue, accessibleOnly)) {
      text += group.type + (group.accessible ? "+" : "-");
      for (const auto& map : group.floors) text += " " + map->shortName;
      for (const auto& connector : group.connectors) text += " " + *connector->id;
      text += "; ";
    }
    return text;
  };
  EXPECT_EQ(summary(false),
            "lift+ F1 G e1; lift- G e2; lift+ e3; lift- F1 G e4; stairs- F1 G s1 s2; ");
  EXPECT_EQ(summary(true), "lift+ F1 G e1; lift+ e3; ");
}

TEST(VenueReport, IsTheSameWhenLinksWereMadeTwice) {
  const char* expected =
      "Small Mall (small)\n"
      "\n"
      "2 floors, 2 locations, 2 categories, 2 connectors, 6 nodes, 2 polygons\n"
      "\n"
      "    Floor   Elevation  Locations  Nodes  Polygons\n"
      "F1  新宿駅         10          1      2         1\n"
      "G   Ground          0          1      4         1\n"
      "\n"
      "Categories (number of locations)\n"
      "  Shops (1)\n"
      "    Food (1)\n"
      "\n"
      "Connectors\n"
      "  elevator  F1, G  1 x  accessible      Lift A\n"
      "  stairs    F1, G  1 x  not accessible  Stairs B\n";
  test::TwoFloorVenue small;
  small.maps = R"([{"id": "g", "name": "Ground", "shortName": "G"},
                   {"id": "f1", "name": "新宿駅", "shortName": "F1", "elevation": 10}])";
  for (const bool twice : {false, true})
    EXPECT_EQ(venueText(*small.load(false, twice), false), expected);
}

TEST(VenueReport, JsonHasTheWholeVenue) {
  test::TwoFloorVenue small;
  small.venue = R"({"id": "v", "slug": "small", "name": "Small Mall", "unitsPerMetre": 2,
                    "attribution": "by \"us\"", "license": 7})";
  const auto object = venueJson(*small.load(), true);
  EXPECT_EQ(text::jsonText(object),
            R"({"id":"v","slug":"small","name":"Small Mall","attribution":"by \"us\"",)"
            R"("unitsPerMetre":2,"counts":{"floors":2,"locations":2,"categories":2,)"
            R"("connectors":2,"nodes":6,"polygons":2},"floors":[{"id":"f1","name":"First",)"
            R"("shortName":"F1","elevation":10,"locations":1,"nodes":2,"polygons":1},)"
            R"({"id":"g","name":"Ground","shortName":"G","elevation":0,"locations":1,"nodes":4,)"
            R"("polygons":1}],"categories":[{"id":"c1","name":"Shops","parents":[],)"
            R"("locations":1},{"id":"c2","name":"Food","parents":["c1"],"locations":1}],)"
            R"("connectors":[{"id":"lift","name":"Lift A","type":"elevator","accessible":true,)"
            R"("floors":["f1","g"]}]})");
}

}  // namespace
}  // namespace orivanta::command
