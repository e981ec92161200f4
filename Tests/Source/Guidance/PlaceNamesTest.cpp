#include "Source/Guidance/PlaceNames.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

std::shared_ptr<Venue> venueOfShops() {
  test::TwoFloorVenue small;
  small.locations = R"([
    {"id": "l1", "name": "Bakery", "type": "shop"},
    {"id": "l2", "name": "bakery", "type": "shop"},
    {"id": "l3", "name": "Book Shop", "type": "shop"},
    {"id": "l4", "name": "Toilet", "type": "amenity"},
    {"id": "l5", "name": "Toilet", "type": "amenity"},
    {"id": "l6", "name": "Café Élan", "type": "shop"},
    {"id": "n3", "name": "named like a node", "type": "shop"},
    {"id": "l8", "name": "l1", "type": "shop"}])";
  return small.load();
}

std::string idsOf(const std::vector<std::shared_ptr<Location>>& locations) {
  std::string ids;
  for (const auto& location : locations) ids += (ids.empty() ? "" : " ") + *location->id;
  return ids;
}

TEST(PlaceNames, AreTakenInTheStrictestWayThatFits) {
  const auto venue = venueOfShops();
  struct Case {
    const char* text;
    const char* locations;
    const char* node;
  };
  for (const Case& each : {Case{"l3", "l3", ""},  // a location's identifier
                           {"l1", "l1", ""},      // before the location that is named so
                           {"n1", "", "n1"},      // a node's identifier
                           {"n3", "n3", ""},      // a location's before a node's
                           {"Bakery", "l1", ""},  // the exact name before other capitals
                           {"bakery", "l2", ""},
                           {"BAKERY", "l1 l2", ""},
                           {"ＢＯＯＫ SHOP", "l3", ""},
                           {"book", "l3", ""},  // a part that is in one name only
                           {"toil", "l4 l5", ""},
                           {"CAFÉ É", "l6", ""},
                           {"cafe", "", ""},  // accents count
                           {"l9", "", ""},
                           {"", "", ""}}) {
    const NamedPlaces named = placesNamed(*venue, each.text);
    EXPECT_EQ(idsOf(named.locations), each.locations) << each.text;
    EXPECT_EQ(named.node ? *named.node->id : "", each.node) << each.text;
  }
}

TEST(PlaceNames, AreListedByAPartOfTheNameOrTheIdentifier) {
  const auto venue = venueOfShops();
  const std::pair<const char*, const char*> cases[] = {
      {"É", "l6"}, {"BOO", "l3"}, {"l1", "l1 l8"}, {"L2", ""}, {"", "l1 l2 l3 l4 l5 l6 n3 l8"}};
  for (const auto& [text, ids] : cases)
    EXPECT_EQ(idsOf(locationsContaining(*venue, text)), ids) << text;
}

}  // namespace
}  // namespace orivanta
