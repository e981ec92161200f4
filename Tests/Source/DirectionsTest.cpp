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

// Returns the path and the instructions, such as "ABC: A Depart from Shop, C Arrive at Bank".
std::string textOf(const Result& result) {
  if (!result) return "nothing";
  std::string text = namesOf(result->path) + ":";
  for (const Direction& direction : result->directions) {
    const Direction::Action* action = direction.action.get();
    const bool departs = dynamic_cast<const Direction::Departure*>(action) != nullptr;
    const bool arrives = dynamic_cast<const Direction::Arrival*>(action) != nullptr;
    EXPECT_EQ(departs, direction.instruction.starts_with("Depart"));
    EXPECT_EQ(arrives, direction.instruction.starts_with("Arrive"));
    text += (text.back() == ':' ? " " : ", ") + *direction.node->id + " " + direction.instruction;
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
      {network("ABC"), nullptr, shop, "ABC: C Arrive at Shop"},
      {network("ABC"), shop, nullptr, "ABC: A Depart from Shop"},
      {network("ABC"), placeOf("x\\\"y"), shop, "ABC: A Depart from x\"y, C Arrive at Shop"},
      {network("B"), shop, shop, "B: B Depart from Shop, B Arrive at Shop"},
      {network("AB"), nameless, nameless, "AB: A Depart from nil, B Arrive at nil"},
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
       "ABC: A Depart from Left, C Arrive at Right"},
      {"node, list", getDirections(node("B"), toList, left_), "BC: B Depart from Left"},
      {"list, node", getDirections(fromList, node("B"), nullptr, right_), "AB: B Arrive at Right"},
      {"nodes", getDirections(node("D"), node("B")), "DCB:"},
      {"place to place", left.directionsTo(right), "ABC: A Depart from Left, C Arrive at Right"},
      {"place to node", left.directionsTo(node("B"), other_),
       "AB: A Depart from Left, B Arrive at Other"},
      {"place to list", left.directionsTo(toList), "ABC: A Depart from Left"},
      {"place from place", right.directionsFrom(left),
       "ABC: A Depart from Left, C Arrive at Right"},
      {"place from node", right.directionsFrom(node("B"), other_),
       "BC: B Depart from Other, C Arrive at Right"},
      {"place from list", right.directionsFrom(fromList), "ABC: C Arrive at Right"},
      {"node to place", node("B").directionsTo(right, other_),
       "BC: B Depart from Other, C Arrive at Right"},
      {"node to node", node("B").directionsTo(node("D"), left_, right_),
       "BCD: B Depart from Left, D Arrive at Right"},
      {"node to list", node("B").directionsTo(toList, nullptr, right_), "BC: C Arrive at Right"},
      {"node from place", node("B").directionsFrom(left, other_),
       "AB: A Depart from Left, B Arrive at Other"},
      {"node from node", node("B").directionsFrom(node("D"), right_, other_),
       "DCB: D Depart from Right, B Arrive at Other"},
      {"node from list", node("D").directionsFrom(fromList, left_), "ABCD: A Depart from Left"},
      {"list to place", directionsTo(fromList, right, left_),
       "ABC: A Depart from Left, C Arrive at Right"},
      {"list to node", directionsTo(fromList, node("B"), nullptr, other_), "AB: B Arrive at Other"},
      {"list to list", directionsTo(fromList, toList, left_), "ABC: A Depart from Left"},
      {"list from place", directionsFrom(toList, left, right_),
       "ABC: A Depart from Left, C Arrive at Right"},
      {"list from node", directionsFrom(toList, node("B"), other_), "BC: B Depart from Other"},
      {"list from list", directionsFrom(toList, fromList, nullptr, right_),
       "ABC: C Arrive at Right"},
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
