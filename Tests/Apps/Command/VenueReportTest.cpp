#include "Apps/Command/VenueReport.hpp"

#include <gtest/gtest.h>

#include "Apps/Command/Json.hpp"
#include "Tests/Apps/Command/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

TEST(VenueReport, IsTheSameWhenLinksWereMadeTwice) {
  const char* expected =
      "Small Mall (small)\n"
      "\n"
      "2 floors, 2 locations, 2 categories, 2 connectors, 6 nodes, 2 polygons\n"
      "\n"
      "    Floor   Elevation  Locations  Nodes  Polygons\n"
      "F1  First          10          1      2         1\n"
      "G   Ground          0          1      4         1\n"
      "\n"
      "Categories (and their locations)\n"
      "  Shops (1)\n"
      "    Food (1)\n"
      "\n"
      "Connectors\n"
      "  elevator  F1, G  1 x  accessible      Lift A\n"
      "  stairs    F1, G  1 x  not accessible  Stairs B\n";
  for (const bool twice : {false, true})
    EXPECT_EQ(venueText(*test::TwoFloorVenue().load(false, twice), false), expected);
}

TEST(VenueReport, JsonHasTheWholeVenue) {
  test::TwoFloorVenue small;
  small.venue = R"({"id": "v", "slug": "small", "name": "Small Mall", "unitsPerMetre": 2,
                    "attribution": "by \"us\"", "license": 7})";
  const auto object = venueJson(*small.load(), true);
  EXPECT_EQ(jsonText(object),
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
