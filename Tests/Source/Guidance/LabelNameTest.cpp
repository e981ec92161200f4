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
  std::vector<std::shared_ptr<Location>> places = *venue->locations;
  places.insert(places.end(), venue->vortices->begin(), venue->vortices->end());
  const std::vector<std::string> expected{"Bakery", "Shops", "", "Red stairs", ""};
  ASSERT_EQ(places.size(), expected.size());
  const LabelNames names(*venue);
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_EQ(labelName(*venue, *places[i]), expected[i]);
    EXPECT_EQ(names.of(*places[i]), expected[i]);
  }
}

}  // namespace orivanta
