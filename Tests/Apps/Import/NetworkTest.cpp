#include "Tests/Apps/Import/Plan.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <random>
#include <set>

#include "Apps/Import/Network/SharpTurns.hpp"
#include "Apps/Import/Network/Smooth.hpp"

namespace orivanta::importer {

namespace {

struct Case {
  const char* name;
  std::vector<std::string> rows;
  const char* from;
  const char* to;
  double shortest;
  double longest;
  double cell = 1.0;
};

const std::vector<Case>& cases() {
  static const std::vector<Case> all{
      {"corridor",
       {"AAAA#########BBBB", "AAAA#########BBBB", "#+#############+#", ".................",
        "................."},
       "door1",
       "door2",
       16.5,
       17.5},
      {"T",
       {"..................", "..................", "########..########", "#######+..########",
        "AAAAAA#+..########", "AAAAAA+...########", "AAAAAA#...+BBBBBBB", "######+...#BBBBBBB"},
       "door2",
       "door4",
       3.0,
       6.0},
      {"columns",
       {"AAAAAAAAAA##########", "#+##################", "....................",
        "....................", "...o...o...o...o....", "....................",
        "....................", "##################+#", "##########BBBBBBBBBB"},
       "door1",
       "door2",
       17.9,
       23.5},
      {"courtyard",
       {"AAAA################", "+###################", "....................",
        "....................", "..################..", "..################..",
        "..################..", "..################..", "....................",
        "....................", "##################+#", "################BBBB"},
       "door1",
       "door2",
       24.0,
       29.0},
      {"dead end",
       {"############AAAA", "############+###", "..............##", "..............##",
        "..##############", "+###############"},
       "door1",
       "door2",
       13.0,
       15.5},
      {"passage of 0.7 m",
       {"AAAA##############BBBB", "AAAA##############BBBB", "#+##################+#",
        ".........####.........", ".........####.........", "......................",
        ".........####.........", ".........####........."},
       "door1",
       "door2",
       13.3,
       17.0,
       0.7},
      {"around a corner of a room",
       {"AAAAAAAA", "AA######", "AA######", "AA+.....", "#######."},
       "A",
       "door1",
       1.0,
       5.0},
      {"a hall with a door between two walkways",
       {"AA##########", "+###########", "......#.....", "......+.....", "......#.....",
        "###########+", "##########BB"},
       "door1",
       "door3",
       11.0,
       15.0},
  };
  return all;
}

// Whether the line crosses the border of a room elsewhere than at a door. Borders within another
// room do not count: rooms that overlap contradict each other.
bool breaksThrough(const Building& building, Point a, Point b) {
  const auto atDoor = [&](Point point) {
    return std::any_of(building.doors.begin(), building.doors.end(), [&](const Door& door) {
      return package::distance(door.position, point) < 1.3;
    });
  };
  const auto inAnother = [&](const Area& room, Point point) {
    return std::any_of(building.areas.begin(), building.areas.end(), [&](const Area& area) {
      return &area != &room && area.kind == AreaKind::room && contains(area.shape, point);
    });
  };
  for (const Area& room : building.areas)
    for (const Polygon& polygon : room.shape)
      for (std::size_t i = 0; i < polygon.outer.size() && room.kind == AreaKind::room; ++i) {
        const Point c = polygon.outer[i];
        const Point d = polygon.outer[(i + 1) % polygon.outer.size()];
        if (!package::cross(a, b, c, d)) continue;
        const Point at =
            a + (b - a) * (package::cross(c - a, d - c) / package::cross(b - a, d - c));
        if (!atDoor(at) && !inAnother(room, at)) return true;
      }
  return false;
}

}  // namespace

TEST(ImportNetwork, ShortWaysWithoutLinesThroughWalls) {
  for (const Case& one : cases()) {
    SCOPED_TRACE(one.name);
    const Plan plan = Plan(one.rows, one.cell).make();
    const double length = plan.way(one.from, one.to);
    EXPECT_GE(length, one.shortest);
    EXPECT_LE(length, one.longest);
    EXPECT_EQ(plan.linesThroughWalls(), 0);
    for (const Door& door : plan.building.doors)
      EXPECT_GE(plan.way(one.from, door.id), 0.0) << door.id;
  }
}

TEST(ImportNetwork, OppositeDoorsShareANode) {
  const Plan plan =
      Plan({"AAAAAAAAAA", "####+#####", "..........", "..........", "####+#####", "BBBBBBBBBB"})
          .make();
  const auto wayNodes =
      std::count_if(plan.building.network.nodes.begin(), plan.building.network.nodes.end(),
                    [](const Node& node) { return node.kind == NodeKind::way; });
  EXPECT_EQ(wayNodes, 3);
  EXPECT_NEAR(plan.way("door1", "door2"), 3.0, 0.1);
}

TEST(ImportNetwork, OneWayStops) {
  Plan plan({"........", "........", "........"});
  Connector connector;
  connector.id = "escalator";
  connector.stops = {{{0.0, {0.2, 1.5}}, "", true, false}, {{0.0, {7.8, 1.5}}, "", false, true}};
  plan.building.connectors = {connector};
  plan.make();
  EXPECT_GT(plan.way("escalator/2", "escalator/1"), 6.0);
  EXPECT_EQ(plan.way("escalator/1", "escalator/2"), -1.0);
}

// The main lines lead round the exhibit in the hall, far from the stairs and from the door.
TEST(ImportNetwork, LeadsStraightToStairsInSight) {
  Plan plan({"#####......................", "#####......................",
             "#####......................", "#####......................",
             "#####.....#########........", "...........................",
             "...........................", "#####......................",
             "#####......................", "##########+################"});
  plan.building.doors.front().position = {10.5, 1.0};
  const Point stairs{5.0, 5.5};
  plan.building.connectors.emplace_back().id = "stairs";
  plan.building.connectors.front().stops = {{{0.0, stairs}, "", true, true}};
  plan.make();
  EXPECT_LE(plan.way("door1", "stairs/1"),
            1.05 * package::distance(plan.building.doors.front().position, stairs));
  EXPECT_EQ(plan.linesThroughWalls(), 0);
}

TEST(ImportNetwork, GuessedDoors) {
  const std::vector<std::string> rows{"CCCC##BBBB", "CCCC##BBBB", "AAAA##BBBB", "..........",
                                      ".........."};
  const Plan guessed = Plan(rows).make();
  EXPECT_GE(guessed.way("A", "B"), 0.0);
  EXPECT_GE(guessed.way("C", "B"), 0.0) << "a room behind a room";
  EXPECT_TRUE(std::all_of(guessed.building.doors.begin(), guessed.building.doors.end(),
                          [](const Door& door) { return door.guessed; }));
  Options strict;
  strict.doors = DoorChoice::strict;
  EXPECT_TRUE(Plan(rows).make(strict).building.doors.empty());
}

TEST(ImportNetwork, KeepsVisitorsOutOfWhatIsForStaffOrNobody) {
  // Rooms in a row, and a corridor below them.
  const std::vector<std::string> rows{"AAA+SSS+TTT+BBB", "+##############", "...............",
                                      "##############+", "CCCCCCCCCCCCCCC"};
  const auto made = [&](Access access) {
    Plan plan(rows);
    for (Door& door : plan.building.doors)
      if (door.id == "door1") door.access = access;
    for (Area& area : plan.building.areas)
      if (area.id == "T" || area.id == ".") area.access = access;
    return std::move(plan.make());
  };
  const auto weightOf = [](const Plan& plan, const char* id) {
    return plan.building.network.nodes[plan.nodeOf(id)].weight;
  };
  const Plan open = made(Access::everybody);
  EXPECT_EQ(weightOf(open, "door1"), 0.0);
  EXPECT_EQ(weightOf(open, "T"), weightOf(open, "S"));
  const Plan staff = made(Access::staff);
  EXPECT_GE(weightOf(staff, "door1"), 500.0);
  EXPECT_GE(weightOf(staff, "T"), 500.0);
  EXPECT_EQ(weightOf(staff, "S"), weightOf(open, "S"));
  for (const Node& node : staff.building.network.nodes)
    EXPECT_TRUE(node.kind != NodeKind::way || !node.of.empty() || node.weight >= 500.0) << node.id;
  const Plan closed = made(Access::nobody);
  EXPECT_EQ(closed.way("A", "C"), -1.0);
  for (const Node& node : closed.building.network.nodes)
    EXPECT_TRUE(node.id != "door1" && node.id != "T" && node.of != "") << node.id;
}

TEST(ImportNetwork, DoublesAndScribblesAreReported) {
  Plan plan({"AAAA######", "AAAA######", "..........", ".........."});
  std::mt19937 random(1);
  const auto jitter = [&] { return static_cast<double>(random() % 100) * 0.0005; };
  const Area room = plan.building.areas.back();
  ASSERT_EQ(room.kind, AreaKind::room);
  for (int copy = 0; copy < 30; ++copy) {
    Area again = room;
    again.id = again.source = "copy" + std::to_string(copy);
    for (Point& point : again.shape.front().outer) point = point + Point{jitter(), jitter()};
    plan.building.areas.push_back(std::move(again));
  }
  Area scribble;
  scribble.id = scribble.source = "scribble";
  scribble.kind = AreaKind::room;
  scribble.shape.emplace_back();
  for (int i = 0; i < 400; ++i)
    scribble.shape.front().outer.push_back(
        {static_cast<double>(random() % 1000) * 0.01, static_cast<double>(random() % 1000) * 0.01});
  plan.building.areas.push_back(std::move(scribble));
  plan.make();
  EXPECT_EQ(plan.findings.countOf("room-doubled"), 30U);
  EXPECT_EQ(plan.findings.countOf("geometry-repaired"), 1U);
  EXPECT_EQ(plan.building.doors.size(), 31U);
  EXPECT_GE(plan.way("A", "copy29"), 0.0);
}

TEST(ImportNetwork, JoinsRoomsWithManyCorners) {
  Plan plan({"..........", ".........."});
  Area round;
  round.id = round.source = "round";
  round.kind = AreaKind::room;
  round.shape.emplace_back();
  for (int i = 0; i < 200; ++i) {
    const double angle = 0.0314159265 * i;
    round.shape.front().outer.push_back({5.0 + 2.0 * std::cos(angle), 4.0 + 2.0 * std::sin(angle)});
  }
  plan.building.areas.push_back(std::move(round));
  plan.building.doors.emplace_back().id = "door1";
  plan.building.doors.back().position = {5.0, 2.0};
  plan.make();
  EXPECT_EQ(plan.building.doors.front().areas.size(), 2U);
  EXPECT_EQ(plan.building.doors.size(), 1U);
}

TEST(ImportNetwork, UsesTheSourcesLinks) {
  Plan plan({"AAAA######", "AAAA######", "#+########", "..........", ".........."});
  plan.building.sourceNodes = {{"n1", {0.0, {0.5, 1.0}}}, {"n2", {0.0, {9.5, 1.0}}}};
  plan.building.sourceLinks = {{"l", "n1", "n2", LinkKind::walk, Direction::backward, {}, {}}};
  plan.make();
  EXPECT_NEAR(plan.way("n2", "n1"), 9.0, 1e-6);
  EXPECT_EQ(plan.way("n1", "n2"), -1.0);
  EXPECT_NEAR(plan.way("n2", "A"), 9.5, 2.5);
}

// A node of the source at the door of a room is not where a route in the room ends.
TEST(ImportNetwork, LeadsIntoRoomsOfTheSource) {
  Plan plan({"AAAA######", "AAAA######", "#+########", "..........", ".........."}, 0.5);
  plan.building.sourceNodes = {
      {"n1", {0.0, {0.25, 0.5}}}, {"n2", {0.0, {4.75, 0.5}}}, {"n3", {0.0, {0.75, 1.6}}}};
  plan.building.sourceLinks = {{"a", "n1", "n2", LinkKind::walk, Direction::both, {}, {}},
                               {"b", "n1", "n3", LinkKind::walk, Direction::both, {}, {}}};
  plan.make();
  EXPECT_GT(plan.way("n2", "A"), 0.0);
  EXPECT_GT(plan.way("n3", "A"), 0.2);
}

// One moved wall changes only what is near it.
TEST(ImportNetwork, KeepsIdentifiersOfOtherParts) {
  std::vector<std::string> rows{
      "AAAA####BBBB####CCCC", "#+#######+#########+", "....................",
      "....................", "####.###############", "####................",
      "####................", "#####+####+#########", "####DDDD##EEEEEEEEEE"};
  const auto namesOf = [](const Plan& plan) {
    std::set<std::string> names;
    for (const Node& node : plan.building.network.nodes) names.insert(node.id);
    return names;
  };
  const std::set<std::string> before = namesOf(Plan(rows).make());
  EXPECT_EQ(before, namesOf(Plan(rows).make()));
  rows[8] = "####DDD###EEEEEEEEEE";
  EXPECT_EQ(before, namesOf(Plan(rows).make()));
}

// Jitter, spikes, doubled and crossed points: no line through a wall, nothing endless.
TEST(ImportNetwork, SurvivesDamage) {
  for (unsigned seed = 1; seed <= 8; ++seed)
    for (const Case& one : cases()) {
      SCOPED_TRACE(testing::Message() << one.name << ", seed " << seed);
      Plan plan(one.rows, one.cell);
      std::mt19937 random(seed);
      const auto below = [&](std::size_t bound) { return static_cast<int>(random() % bound); };
      for (Area& area : plan.building.areas)
        for (Polygon& polygon : area.shape) {
          Outline& outline = polygon.outer;
          for (Point& point : outline)
            point = point + Point{below(100) * 0.0005 - 0.025, below(100) * 0.0005 - 0.025};
          const std::size_t at = static_cast<std::size_t>(below(outline.size()));
          if (below(2) == 0) outline.insert(outline.begin() + static_cast<long>(at), outline[at]);
          if (below(4) == 0) std::swap(outline[at], outline[(at + 1) % outline.size()]);
          if (below(4) == 0) outline.push_back({1e300, std::nan("")});
          if (below(4) == 0) outline.push_back(outline[at] + Point{0.0, 30.0});
        }
      plan.building.doors.push_back({});
      plan.building.doors.back().position = {std::nan(""), 1e9};
      plan.make();
      const Network& network = plan.building.network;
      const Shape space = [&] {
        Shape all;
        for (const Area& area : plan.building.areas) all = joined(all, area.shape);
        for (const Door& door : plan.building.doors)
          all.push_back({package::circle(door.position, 1.3), {}});
        return withMargin(united(all), 0.02);
      }();
      for (const Edge& edge : network.edges) {
        const Point a = network.nodes[edge.from].position;
        const Point b = network.nodes[edge.to].position;
        for (int i = 0; i <= 20; ++i) ASSERT_TRUE(contains(space, a + (b - a) * (i / 20.0)));
        ASSERT_FALSE(breaksThrough(plan.building, a, b)) << a.x << ' ' << a.y;
      }
    }
}

// The network of a way through nodes from door to door in a hall of 20 by 6 meters.
Draft wayInHall(const std::vector<Point>& points) {
  Draft draft;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const bool isDoor = i == 0 || i + 1 == points.size();
    draft.addNode(points[i], isDoor ? NodeKind::door : NodeKind::way, isDoor ? "door" : "", "");
    if (i > 0)
      draft.addEdge(static_cast<std::uint32_t>(i - 1), static_cast<std::uint32_t>(i), false);
  }
  return draft;
}

TEST(Network, MovesNodesToBendLess) {
  const Space hall(Shape{{package::rectangle(0.0, 0.0, 20.0, 6.0), {}}});
  const auto moved = [&](const std::vector<Point>& points) {
    Draft draft = wayInHall(points);
    smoothBends(hall, draft);
    return draft;
  };
  const Draft straight = moved({{2.0, 3.0}, {7.0, 3.5}, {12.0, 2.5}, {18.0, 3.0}});
  EXPECT_NEAR(straight.nodes[1].position.y, 3.0, 0.1) << "a zigzag";
  EXPECT_NEAR(straight.nodes[2].position.y, 3.0, 0.1);
  const Draft corner = moved({{2.0, 1.5}, {17.0, 1.5}, {17.0, 5.5}});
  EXPECT_EQ(corner.nodes[1].position.x, 17.0) << "a turn must not be cut off";
  EXPECT_EQ(corner.nodes[1].position.y, 1.5);
  const Draft atWall = moved({{2.0, 1.2}, {7.0, 1.5}, {12.0, 0.4}, {18.0, 0.4}});
  EXPECT_GE(atWall.nodes[1].position.y, 1.0) << "nearer to the wall than people walk";
}

TEST(Network, CutsOffTurnsThatLeadBack) {
  const Space hall(Shape{{package::rectangle(0.0, 0.0, 20.0, 6.0), {}}});
  Draft tip = wayInHall({{2.0, 2.0}, {4.0, 2.0}, {16.0, 3.0}, {8.0, 4.0}, {2.0, 4.0}});
  cutSharpTurns(hall, tip);
  ASSERT_EQ(tip.edges.size(), 5U);
  EXPECT_NEAR(tip.lengthOf(tip.edges.back()), std::sqrt(20.0), 0.01) << "past the tip";
  Draft corner = wayInHall({{2.0, 2.0}, {16.0, 2.0}, {14.0, 5.0}});
  cutSharpTurns(hall, corner);
  EXPECT_EQ(corner.edges.size(), 2U) << "turns of ordinary corners stay";
  // The line in the middle is divided for the turn at its first end. The other end is not taken for
  // that of the nearer half.
  const Space large(Shape{{package::rectangle(0.0, 0.0, 60.0, 6.0), {}}});
  Draft both = wayInHall({{30.0, 1.0}, {50.0, 1.4}, {2.0, 3.0}, {22.0, 4.6}});
  cutSharpTurns(large, both);
  EXPECT_EQ(both.edges.size(), 5U);
  double sum = 0.0;
  for (const DraftEdge& edge : both.edges) sum += both.lengthOf(edge);
  EXPECT_NEAR(sum, 20.0 + 48.0 + 20.0 + 1.1, 0.3);
}

}  // namespace orivanta::importer
