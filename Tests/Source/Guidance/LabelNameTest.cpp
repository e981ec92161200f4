#include "Source/Guidance/LabelName.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {

TEST(LabelName, IsTheNameOnTheSignOrThatOfTheKind) {
  test::TwoFloorVenue small;
  small.categories = R"([{"id": "c1", "name": "Shops"}, {"id": "c2", "name": "Stairs"}])";
  small.locations = R"([
    {"id": "l1", "name": "Bakery", "type": "shop", "categories": ["c1"]},
    {"id": "l2", "name": "Shop 17", "type": "shop", "categories": ["c1"], "nameGenerated": true},
    {"id": "l3", "name": "Room 18", "type": "room", "nameGenerated": true}])";
  small.vortices = R"([
    {"id": "v1", "name": "Red stairs", "type": "stairs", "categories": ["c2"], "nodes": ["n2", "n4"]},
    {"id": "v2", "name": "Stairs 2", "type": "stairs", "categories": ["c2"], "nodes": ["n2", "n4"]}])";
  const auto venue = small.load();
  std::vector<std::string> names;
  for (const auto& place : *venue->locations) names.push_back(labelName(*venue, *place));
  for (const auto& place : *venue->vortices) names.push_back(labelName(*venue, *place));
  EXPECT_EQ(names, (std::vector<std::string>{"Bakery", "Shops", "", "Red stairs", ""}));
}

}  // namespace orivanta
