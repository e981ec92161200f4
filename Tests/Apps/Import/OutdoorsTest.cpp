// Where nothing is drawn to walk on: between buildings, beside paths, around the heads of stairs.
#include <gmock/gmock.h>

#include <algorithm>

#include "Apps/Import/Network/OutdoorLines.hpp"
#include "Tests/Apps/Import/Plan.hpp"

namespace orivanta::importer {

namespace {

Plan withGround(std::vector<std::string> rows, double level = 0.0) {
  Plan plan(std::move(rows));
  plan.building.storeys.emplace_back().ordinal = level;
  for (Area& area : plan.building.areas) area.level = level;
  return plan;
}

void addPath(Plan& plan, double level, std::vector<Point> points) {
  Line path;
  path.id = path.source = "path";
  path.levels = {level};
  path.points = std::move(points);
  plan.building.lines.push_back(std::move(path));
}

const Door& doorOf(const Plan& plan, const std::string& area) {
  for (const Door& door : plan.building.doors)
    if (door.areas.front() == area) return door;
  ADD_FAILURE() << "no door of " << area;
  static const Door none;
  return none;
}

}  // namespace

TEST(ImportOutdoors, JoinsBuildingsStraightOrRoundCorners) {
  for (const auto& [row, least, most] : {std::tuple("AA....+      +....BB", 14.0, 20.0),
                                         std::tuple("AA....+  CC  +....BB", 16.0, 26.0),
                                         std::tuple("AA.....      +....BB", 14.0, 20.0)}) {
    Plan plan = withGround({row, "AA....   CC   ..BB", "         CC       "});
    if (row[9] != 'C') plan = withGround({row, "AA....          ..BB"});
    plan.make();
    joinStoreys(plan.building, {}, plan.findings);
    EXPECT_EQ(plan.findings.countOf("joined-outdoors"), row[9] == 'C' ? 2U : 1U);
    EXPECT_GT(plan.way("A", "B"), least) << row;
    EXPECT_LT(plan.way("A", "B"), most) << row;
    for (const auto& [from, to, oneWay] : plan.building.network.edges)
      for (const Area& area : plan.building.areas)
        EXPECT_TRUE(area.id != "C" || plan.building.network.nodes[from].of == "C" ||
                    plan.building.network.nodes[to].of == "C" ||
                    !contains(area.shape, (plan.building.network.nodes[from].position +
                                           plan.building.network.nodes[to].position) *
                                              0.5));
  }
}

// From the exit, a way leads round the point at (-1, 1) to the south, and another one to the west.
TEST(ImportOutdoors, PassesExitsWithoutTurningBack) {
  for (const bool hasWall : {true, false}) {
    Building building;
    for (const Point point : {Point{0.0, 0.0}, Point{1.0, -10.0}, Point{-20.0, -4.0}})
      building.network.nodes.push_back({"", NodeKind::door, 0.0, point, "", 0.0});
    OutdoorLines lines(building);
    lines.add({0, {0.0, 0.0}}, {{-1.0, 1.0}}, {1, {1.0, -10.0}});
    lines.add({0, {0.0, 0.0}}, {}, {2, {-20.0, -4.0}});
    const double height = hasWall ? 5.0 : 90.0;
    lines.cutTurnsBack(SegmentGrid({{{-10.0, height - 10.0}, {-10.0, height}}}, 0.0));
    EXPECT_EQ(building.network.edges.size(), hasWall ? 3U : 4U);
    const Edge last = building.network.edges.back();
    EXPECT_EQ(std::max(last.from, last.to), hasWall ? 2U : 3U) << "a line at the bend";
  }
}

// Nothing to walk on is drawn: the rest of the storey, or the outside.
TEST(ImportOutdoors, ReachesRoomsWithoutWalkways) {
  const std::vector<std::string> rows{"AAAA    BBBB", "AAAA    BBBB", "            ",
                                      "CCCC        "};
  for (const bool hasOutline : {true, false}) {
    Plan plan(rows);
    plan.building.storeys.emplace_back();
    if (hasOutline)
      plan.building.storeys.back().footprint = {{package::rectangle(0, 0, 12, 4), {}}};
    plan.make();
    joinStoreys(plan.building, {}, plan.findings);
    EXPECT_EQ(plan.findings.countOf("walkway-missing"), hasOutline ? 1U : 0U);
    EXPECT_EQ(plan.findings.countOf("joined-outdoors"), hasOutline ? 0U : 2U);
    EXPECT_GT(plan.way("A", "B"), 0.0);
    EXPECT_GT(plan.way("B", "C"), 0.0);
  }
}

// Two rows of rooms face each other; what joins A and E alone would lead from D to H past all.
TEST(ImportOutdoors, CrossesOpenGroundInsteadOfLeadingRoundIt) {
  const std::string space(20, ' ');
  std::vector<std::string> rows(14, space);
  rows.insert(rows.begin(), {"AA    BB    CC    DD", "AA    BB    CC    DD"});
  rows.insert(rows.end(), {"EE    FF    GG    HH", "EE    FF    GG    HH"});
  Plan plan = withGround(rows);
  plan.make();
  joinStoreys(plan.building, {}, plan.findings);
  EXPECT_EQ(plan.findings.countOf("joined-outdoors"), 7U);
  EXPECT_LT(plan.way("A", "E"), 22.0);
  EXPECT_LT(plan.way("D", "H"), 22.0);
}

TEST(ImportOutdoors, PathsThatEndInTheOpenLeadOn) {
  std::vector<std::string> rows(30, "");
  rows.front() = "AA....+";
  rows.back() = "MM";
  Plan plan = withGround(rows);
  addPath(plan, 0.0, {{3.5, 29.5}, {3.5, 12.0}});
  plan.make();
  joinStoreys(plan.building, {}, plan.findings);
  EXPECT_NEAR(plan.way("A", "M"), 31.0, 4.0);
  EXPECT_EQ(plan.findings.countOf("joined-outdoors"), 1U);
  double nearest = 99.0;  // of the lines from the door of M
  const auto& [nodes, edges] = plan.building.network;
  for (const auto& [from, to, oneWay] : edges)
    for (const std::size_t end : {from, to})
      nearest = std::min(nearest, package::distance(nodes[end].position, {3.5, 12.0}));
  EXPECT_LT(nearest, 1.0);
}

// C stands behind A and B; D is too far away. Upstairs a neighbor with a door is better than a
// path.
TEST(ImportOutdoors, DoorsLeadToPathsNearby) {
  const std::vector<std::string> rows{"DD              ", "                ", "                ",
                                      "CCCCCCCC        ", "AAAABBBB   EEEE#", "AAAABBBB   EEEE.",
                                      "                ", "                ", "                "};
  for (const double level : {0.0, 1.0}) {
    Plan plan = withGround(rows, level);
    addPath(plan, level, {{0.0, 0.5}, {10.0, 0.5}});
    plan.make();
    EXPECT_NEAR(doorOf(plan, "A").position.y, 3.0, 0.1);
    EXPECT_NEAR(doorOf(plan, "A").position.x, 2.0, 0.6) << "in the middle of the wall";
    EXPECT_GT(plan.way("A", "B"), 0.0);
    EXPECT_NE(doorOf(plan, "C").areas.size(), 1U) << "through a room";
    EXPECT_NEAR(doorOf(plan, "E").position.x, 15.0, 0.1) << "to the walkway";
    for (const Door& door : plan.building.doors)
      EXPECT_NE(door.level == 1.0 ? door.areas[0] : "", "D");
  }
}

TEST(ImportOutdoors, EntrancesFacePassages) {
  Plan plan = withGround(
      {"AAAAAA", "AAAAAA", "AAAAAA", "      ", "      ", "      ", "BBBBBB", "BBBBBB", "BBBBBB"});
  addPath(plan, 0.0, {{100.0, 100.0}, {110.0, 100.0}});
  plan.building.storeys.back().footprint = {{package::rectangle(0, 0, 6, 9), {}}};
  plan.make();
  EXPECT_NEAR(doorOf(plan, "A").position.y, 6.0, 0.1);
  EXPECT_NEAR(doorOf(plan, "B").position.y, 3.0, 0.1);
}

// An exit at the head of stairs, where nothing is drawn, and one that nothing reaches.
TEST(ImportOutdoors, PlacesAtTheHeadsOfStairs) {
  Plan plan = withGround({"AAAA", "....", "...."}, -1.0);
  plan.building.storeys.emplace_back();
  Connector stairs;
  stairs.id = "stairs";
  stairs.stops = {{{-1.0, {0.2, 1.0}}, "", true, true}, {{0.0, {-8.0, 1.0}}, "", true, true}};
  plan.building.connectors = {stairs};
  for (const auto& [id, x] :
       {std::pair("exit", -9.0), std::pair("far", -60.0), std::pair("farther", -70.0)}) {
    Place place;
    place.id = place.source = place.names.name = id;
    place.spots = {{0.0, {x, 1.0}}};
    plan.building.places.push_back(std::move(place));
  }
  plan.make();
  EXPECT_NEAR(plan.way("exit/1", "stairs/2"), 1.0, 0.1);
  reviewBuilding(plan.building, plan.findings);
  ASSERT_EQ(plan.findings.countOf("unreachable"), 1U) << "one for both";
  for (const Finding& finding : plan.findings.sorted())
    if (finding.rule == "unreachable") {
      EXPECT_THAT(finding.message, testing::HasSubstr("\"far\", \"farther\""));
    }
}

}  // namespace orivanta::importer
