#include "Source/Guidance/PlaceNames.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {

TEST(PlaceNames, AreTakenInTheStrictestWayThatFits) {
  test::TwoFloorVenue small;
  small.locations = R"([
    {"id": "l1", "name": "Bakery", "type": "shop"}, {"id": "l2", "name": "bakery", "type": "shop"},
    {"id": "l3", "name": "Book Shop", "type": "shop"}, {"id": "n3", "name": "l1", "type": "shop"},
    {"id": "l5", "name": "Café Élan", "type": "shop"}])";
  const auto venue = small.load();
  const auto idsOf = [](const std::vector<std::shared_ptr<Location>>& locations) {
    std::string ids;
    for (const auto& location : locations) ids += (ids.empty() ? "" : " ") + *location->id;
    return ids;
  };
  struct Case {
    const char* text;
    const char* named;
    const char* containing;
  };
  for (const Case& each : {Case{"l1", "l1", "l1 n3"},  // an identifier precedes a name
                           {"n1", "node n1", ""},
                           {"n3", "n3", "n3"},         // a location precedes a node
                           {"Bakery", "l1", "l1 l2"},  // an exact name precedes one in other case
                           {"bakery", "l2", "l1 l2"},
                           {"BAKERY", "l1 l2", "l1 l2"},
                           {"bake", "l1 l2", "l1 l2"},
                           {"ＢＯＯＫ SHOP", "l3", "l3"},
                           {"CAFÉ É", "l5", "l5"},
                           {"cafe", "", ""},  // accents are significant
                           {"L2", "", ""},    // identifiers must match exactly
                           {"l9", "", ""},
                           {"", "", "l1 l2 l3 n3 l5"}}) {
    const NamedPlaces named = placesNamed(*venue, each.text);
    EXPECT_EQ(named.node ? "node " + *named.node->id : idsOf(named.locations), each.named)
        << each.text;
    EXPECT_EQ(idsOf(locationsContaining(*venue, each.text)), each.containing) << each.text;
  }
}

}  // namespace orivanta
