#include "Source/Directions.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta {
namespace {

using test::DrawnNetwork;
using test::namesOf;

using Result = std::shared_ptr<Directions>;

static_assert(
    !std::is_assignable_v<decltype((std::declval<Direction&>().instruction)), std::string>);

std::shared_ptr<Location> placeOf(const std::string& name, NodeList nodes = {}) {
  auto place = Location::make(
      *RawData::parse(R"({"id": "1", "name": ")" + name + R"(", "type": "tenant"})"));
  place->nodes = std::move(nodes);
  return place;
}

// Returns "path: instruction at node / ...", with D for a departure and A for an arrival.
std::string textOf(const Result& result) {
  if (!result) return "nothing";
  std::string text = namesOf(result->path) + ":";
  for (const Direction& direction : result->directions) {
    const Direction::Action* action = direction.action.get();
    const bool departs = dynamic_cast<const Direction::Departure*>(action) != nullptr;
    const bool arrives = dynamic_cast<const Direction::Arrival*>(action) != nullptr;
    text += " (" + std::string(departs ? "D" : "") + (arrives ? "A" : "") + " " +
            direction.instruction + " at " + *direction.node->id + ")";
    EXPECT_TRUE(direction.atLocation);
    EXPECT_FALSE(direction.towardsLocation);
  }
  return text;
}

TEST(Directions, SayWhereToDepartAndArrive) {
  const DrawnNetwork network("A-B-C");
  const auto shop = placeOf("Shop");
  const auto nameless = placeOf("Shop");
  nameless->name.reset();
  struct {
    std::optional<NodeList> path;
    std::shared_ptr<Location> from, to;
    const char* text;
  } const cases[] = {
      {std::nullopt, shop, shop, "nothing"},
      {NodeList{}, shop, shop, "nothing"},
      {network("ABC"), nullptr, nullptr, "ABC:"},
      {network("ABC"), nullptr, shop, "ABC: (A Arrive at Shop at C)"},
      {network("ABC"), shop, nullptr, "ABC: (D Depart from Shop at A)"},
      {network("ABC"), placeOf("x\\\"y"), shop,
       "ABC: (D Depart from x\"y at A) (A Arrive at Shop at C)"},
      {network("B"), shop, shop, "B: (D Depart from Shop at B) (A Arrive at Shop at B)"},
      {network("AB"), nameless, nameless, "AB: (D Depart from nil at A) (A Arrive at nil at B)"},
  };
  for (const auto& test : cases)
    EXPECT_EQ(textOf(Directions::make(test.path, test.from, test.to)), test.text);
}

/// Makes a venue with the network's graph the active venue until the end of the test.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): the test library destroys it
class ActiveDirections : public testing::Test {
 protected:
  ActiveDirections() {
    activeVenue = Venue::make(*RawData::parse(R"({"id": "1", "slug": "v", "name": "V"})"));
    activeVenue->navigationGraph = std::move(network_.graph);
  }
  ~ActiveDirections() override { activeVenue = before_; }

  Node& node(const char* name) { return *network_(name).front(); }

  DrawnNetwork network_{"A-B-C-D"};
  std::shared_ptr<Location> left_ = placeOf("Left", network_("A"));
  std::shared_ptr<Location> right_ = placeOf("Right", network_("CD"));
  std::shared_ptr<Location> other_ = placeOf("Other");

 private:
  std::shared_ptr<Venue> before_ = activeVenue;
};

TEST_F(ActiveDirections, EveryEntryLeadsToTheSameSearch) {
  const NodeList toList = network_("CD");
  const NodeList fromList = network_("A");
  Location& left = *left_;
  Location& right = *right_;
  struct {
    const char* what;
    Result result;
    const char* text;
  } const cases[] = {
      {"lists", getDirections(fromList, toList, left_, right_),
       "ABC: (D Depart from Left at A) (A Arrive at Right at C)"},
      {"node, list", getDirections(node("B"), toList, left_), "BC: (D Depart from Left at B)"},
      {"list, node", getDirections(fromList, node("B"), nullptr, right_),
       "AB: (A Arrive at Right at B)"},
      {"nodes", getDirections(node("D"), node("B")), "DCB:"},
      {"place to place", left.directionsTo(right),
       "ABC: (D Depart from Left at A) (A Arrive at Right at C)"},
      {"place to node", left.directionsTo(node("B"), other_),
       "AB: (D Depart from Left at A) (A Arrive at Other at B)"},
      {"place to list", left.directionsTo(toList), "ABC: (D Depart from Left at A)"},
      {"place from place", right.directionsFrom(left),
       "ABC: (D Depart from Left at A) (A Arrive at Right at C)"},
      {"place from node", right.directionsFrom(node("B"), other_),
       "BC: (D Depart from Other at B) (A Arrive at Right at C)"},
      {"place from list", right.directionsFrom(fromList), "ABC: (A Arrive at Right at C)"},
      {"node to place", node("B").directionsTo(right, other_),
       "BC: (D Depart from Other at B) (A Arrive at Right at C)"},
      {"node to node", node("B").directionsTo(node("D"), left_, right_),
       "BCD: (D Depart from Left at B) (A Arrive at Right at D)"},
      {"node to list", node("B").directionsTo(toList, nullptr, right_),
       "BC: (A Arrive at Right at C)"},
      {"node from place", node("B").directionsFrom(left, other_),
       "AB: (D Depart from Left at A) (A Arrive at Other at B)"},
      {"node from node", node("B").directionsFrom(node("D"), right_, other_),
       "DCB: (D Depart from Right at D) (A Arrive at Other at B)"},
      {"node from list", node("D").directionsFrom(fromList, left_),
       "ABCD: (D Depart from Left at A)"},
      {"list to place", directionsTo(fromList, right, left_),
       "ABC: (D Depart from Left at A) (A Arrive at Right at C)"},
      {"list to node", directionsTo(fromList, node("B"), nullptr, other_),
       "AB: (A Arrive at Other at B)"},
      {"list to list", directionsTo(fromList, toList, left_), "ABC: (D Depart from Left at A)"},
      {"list from place", directionsFrom(toList, left, right_),
       "ABC: (D Depart from Left at A) (A Arrive at Right at C)"},
      {"list from node", directionsFrom(toList, node("B"), other_),
       "BC: (D Depart from Other at B)"},
      {"list from list", directionsFrom(toList, fromList, nullptr, right_),
       "ABC: (A Arrive at Right at C)"},
  };
  for (const auto& test : cases) EXPECT_EQ(textOf(test.result), test.text) << test.what;
}

TEST_F(ActiveDirections, AreNothingWithoutAWay) {
  EXPECT_FALSE(other_->directionsTo(*right_));
  EXPECT_FALSE(getDirections(NodeList{}, network_("A")));
  EXPECT_FALSE(getDirections(network_("A"), NodeList{test::makeNode(0, 0)}));
  activeVenue->navigationGraph = nullptr;
  EXPECT_FALSE(left_->directionsTo(*right_));
  activeVenue = nullptr;
  EXPECT_DEATH(left_->directionsTo(*right_), "unexpectedly found nil while unwrapping");
}

}  // namespace
}  // namespace orivanta
