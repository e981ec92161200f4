#include "Apps/Command/Places.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

test::TwoFloorVenue venueOfShops() {
  test::TwoFloorVenue small;
  small.locations = R"([
    {"id": "l1", "name": "Bakery", "type": "shop", "nodes": [{"node": "n1"}, {"node": "n2"}]},
    {"id": "l2", "name": "bakery", "type": "shop", "nodes": [{"node": "n2"}]},
    {"id": "l4", "name": "Toilet", "type": "amenity", "nodes": [{"node": "n3"}]},
    {"id": "l5", "name": "Toilet", "type": "amenity", "nodes": [{"node": "u1"}]}])";
  return small;
}

TEST(Places, SeveralMakeOneEndWithEachNodeOnce) {
  const auto venue = venueOfShops().load();
  EXPECT_EQ(findRouteEnd(*venue, {"l1"}).location, venue->locations->front());
  const RouteEnd end = findRouteEnd(*venue, {"l1", "n4", "l2", "l1"});
  std::string nodes;
  for (const auto& node : end.nodes) nodes += *node->id + ' ';
  EXPECT_EQ(nodes, "n1 n2 n4 ");
  EXPECT_EQ(end.location, nullptr);
}

TEST(Places, ThatCannotBeToldAreRefused) {
  test::TwoFloorVenue small = venueOfShops();
  small.locations.pop_back();
  for (int i = 0; i < 25; ++i)
    small.locations += R"(,{"id": "t)" + std::to_string(i) + R"(", "name": "Gate", "type": "g"})";
  small.locations += ']';
  const auto venue = small.load();
  struct Case {
    std::string text;
    ExitCode code;
    std::vector<std::string> said;
  };
  const std::vector<Case> cases = {
      {"Toilet", ExitCode::wrongUse, {"2 locations", "l4  Toilet  G", "l5  Toilet  F1"}},
      {"BAKERY", ExitCode::wrongUse, {"l1  Bakery", "l2  bakery"}},
      {"Gate", ExitCode::wrongUse, {"t19  Gate\n  and 5 more"}},  // long lists are cut
      {"Cinema", ExitCode::notFound, {"\"Cinema\""}},
      {"", ExitCode::wrongUse, {"empty"}},
  };
  for (const Case& each : cases) try {
      findRouteEnd(*venue, {"l1", each.text});
      ADD_FAILURE() << each.text;
    } catch (const CommandError& error) {
      EXPECT_EQ(error.code, each.code) << each.text;
      for (const std::string& part : each.said)
        EXPECT_NE(std::string(error.what()).find(part), std::string::npos) << error.what();
    }
}

}  // namespace
}  // namespace orivanta::command
