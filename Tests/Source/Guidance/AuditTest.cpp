#include "Source/Guidance/Audit.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::guidance {
namespace {

std::string namesOf(const PlaceList& places) {
  std::string names;
  for (const auto& place : places) names += (names.empty() ? "" : " ") + *place->id;
  return names;
}

// The entrance is at n1, l2 at u2 above the lift and the stairs, `top` above a second lift, `trap`
// behind a one-way edge, and `lost` nowhere.
test::TwoFloorVenue records(const std::string& typeOfN1) {
  test::TwoFloorVenue records;
  records.maps.back() = ',';
  records.maps += R"({"id": "f2", "elevation": 20}])";
  records.nodes.back() = ',';
  records.nodes += R"({"id": "t1", "map": "f2", "x": 6, "y": 0, "paths": [{"node": "t2"}]},
      {"id": "t2", "map": "f2", "x": 9, "y": 0}])";
  records.vortices.back() = ',';
  records.vortices +=
      R"({"id": "lift2", "name": "Lift 2", "type": "lift", "nodes": ["u1", "t1"]}])";
  records.locations = R"([
      {"id": "l2", "name": "Book Shop", "type": "shop", "nodes": [{"node": "u2"}]},
      {"id": "in", "name": "North", "type": ")" +
                      typeOfN1 + R"(", "nodes": [{"node": "n1"}]},
      {"id": "none", "name": "Without nodes", "type": "shop"},
      {"id": "top", "name": "Terrace", "type": "shop", "nodes": [{"node": "t1"}]},
      {"id": "trap", "name": "Trap", "type": "shop", "nodes": [{"node": "t2"}]},
      {"id": "lost", "name": "Lost", "type": "shop", "nodes": [{"node": "n4"}]}])";
  return records;
}

TEST(Audit, FindsWhatAFailureCutsOff) {
  for (const bool named : {true, false}) {
    const auto venue = records(named ? "entrance" : "shop").load();
    const Audit result = audit(*venue, *Guide::make(*venue));
    EXPECT_EQ(result.entranceAssumed, !named);
    ASSERT_EQ(result.entrances.size(), 1U);
    EXPECT_EQ(*result.entrances[0].entrance->id, named ? "in" : "l2");
    EXPECT_EQ(namesOf(result.entrances[0].notStepFree), "lost");
    EXPECT_EQ(namesOf(result.unreachable), "lost");
    EXPECT_EQ(namesOf(result.withoutWayBack), "trap");
    std::string findings;
    for (const auto& finding : result.connectors)
      findings += *finding.connector->id + ": " + namesOf(finding.cutOff) + ", " +
                  namesOf(finding.cutOffStepFree) + "; ";
    EXPECT_EQ(findings, named ? "lift: , l2 top trap; lift2: top trap, top trap; "
                              : "lift: , in; lift2: top trap, top trap; ");
  }
}

TEST(Audit, EndsEarly) {
  const auto venue = records("exit").load();
  const auto guide = Guide::make(*venue);
  const foundation::CancellationSource canceled;
  canceled.cancel();
  const Audit none = audit(*venue, *guide, canceled.token());
  EXPECT_TRUE(none.entrances.empty() && none.connectors.empty());
  EXPECT_TRUE(none.unreachable.empty() && none.withoutWayBack.empty());
  test::TwoFloorVenue empty;
  empty.locations = "[]";
  const auto nothing = empty.load();
  EXPECT_TRUE(audit(*nothing, *Guide::make(*nothing)).entrances.empty());
}

TEST(Audit, KnowsEntrances) {
  const std::pair<const char*, bool> cases[] = {
      {R"({"id": "a", "name": "A", "type": "exit"})", true},
      {R"({"id": "a", "name": "A", "type": "Entrance hall"})", false},
      {R"({"id": "a", "name": "Entrance", "type": "shop"})", false},
  };
  for (const auto& [json, expected] : cases)
    EXPECT_EQ(isEntrance(*Location::make(*RawData::parse(json))), expected) << json;
  const auto location =
      Location::make(*RawData::parse(R"({"id": "a", "name": "A", "type": "shop"})"));
  location->categories = {
      Category::make(*RawData::parse(R"({"id": "cat-entrance", "name": "E"})"))};
  EXPECT_TRUE(isEntrance(*location));
}

}  // namespace
}  // namespace orivanta::guidance
