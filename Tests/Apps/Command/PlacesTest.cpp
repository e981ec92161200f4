#include "Apps/Command/Places.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "Apps/Command/CommandError.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::command {
namespace {

constexpr const char* locations = R"([
    {"id": "l1", "name": "Bakery", "type": "shop", "nodes": [{"node": "n1"}, {"node": "n2"}]},
    {"id": "l2", "name": "bakery", "type": "shop", "nodes": [{"node": "n2"}]},
    {"id": "l3", "name": "Book Shop", "type": "shop", "nodes": [{"node": "u2"}]},
    {"id": "l4", "name": "Toilet", "type": "amenity", "nodes": [{"node": "n3"}]},
    {"id": "l5", "name": "Toilet", "type": "amenity", "nodes": [{"node": "u1"}]},
    {"id": "l6", "name": "Café Élan", "type": "shop", "polygons": [{"id": "p2"}]},
    {"id": "n3", "name": "named like a node", "type": "shop", "nodes": [{"node": "u1"}]},
    {"id": "l8", "name": "l1", "type": "shop"}])";

std::shared_ptr<Venue> venueOfShops() {
  test::TwoFloorVenue small;
  small.locations = locations;
  return small.load();
}

std::string identifiersOf(const NodeList& nodes) {
  std::string ids;
  for (const auto& node : nodes) ids += (ids.empty() ? "" : " ") + *node->id;
  return ids;
}

TEST(Places, AreFoundInTheStrictestWayThatFits) {
  const auto venue = venueOfShops();
  struct Case {
    std::vector<std::string> texts;
    std::string nodes;
    std::string place;  // "" for none
  };
  const std::vector<Case> cases = {
      {{"l3"}, "u2", "l3"},         // a location's identifier
      {{"l1"}, "n1 n2", "l1"},      // before the location that is named so
      {{"n1"}, "n1", ""},           // a node's identifier
      {{"n3"}, "u1", "n3"},         // a location's before a node's
      {{"Bakery"}, "n1 n2", "l1"},  // the exact name before other capitals
      {{"bakery"}, "n2", "l2"},
      {{"BOOK SHOP"}, "u2", "l3"},
      {{"book"}, "u2", "l3"},  // a part that is in one name only
      {{"CAFÉ É"}, "", "l6"},
      {{"l1", "l2"}, "n1 n2", ""},  // two of them are no one place, and no node comes twice
      {{"l1", "n4"}, "n1 n2 n4", ""},
      {{"l1", "l1"}, "n1 n2", ""},
  };
  for (const Case& each : cases) {
    const RouteEnd end = findRouteEnd(*venue, each.texts);
    EXPECT_EQ(identifiersOf(end.nodes), each.nodes) << each.texts.front();
    EXPECT_EQ(end.place ? *end.place->id : "", each.place) << each.texts.front();
  }
}

TEST(Places, ThatCannotBeToldAreRefused) {
  const auto venue = venueOfShops();
  struct Case {
    std::string text;
    ExitCode code;
    std::vector<std::string> said;
  };
  const std::vector<Case> cases = {
      {"Toilet", ExitCode::wrongUse, {"2 locations", "l4  Toilet  G", "l5  Toilet  F1"}},
      {"BAKERY", ExitCode::wrongUse, {"l1  Bakery", "l2  bakery"}},
      {"toil", ExitCode::wrongUse, {"l4", "l5"}},
      {"Cinema", ExitCode::notFound, {"\"Cinema\""}},
      {"l9", ExitCode::notFound, {"\"l9\""}},
      {"", ExitCode::wrongUse, {"empty"}},
  };
  for (const Case& each : cases) try {
      findRouteEnd(*venue, {"l3", each.text});
      ADD_FAILURE() << each.text;
    } catch (const CommandError& error) {
      EXPECT_EQ(error.code, each.code) << each.text;
      for (const std::string& part : each.said)
        EXPECT_NE(std::string(error.what()).find(part), std::string::npos) << error.what();
    }
}

TEST(Places, ALongListOfCandidatesIsCut) {
  test::TwoFloorVenue small;
  small.locations = "[";
  for (int i = 0; i < 25; ++i)
    small.locations += R"({"id": "t)" + std::to_string(i) + R"(", "name": "Gate", "type": "g"},)";
  small.locations.back() = ']';
  try {
    findRouteEnd(*small.load(), {"Gate"});
    FAIL();
  } catch (const CommandError& error) {
    const std::string text = error.what();
    EXPECT_NE(text.find("t19"), std::string::npos);
    EXPECT_EQ(text.find("t20"), std::string::npos);
    EXPECT_TRUE(text.ends_with("and 5 more")) << text;
  }
}

}  // namespace
}  // namespace orivanta::command
