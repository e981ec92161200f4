// Connectors from drawn areas, lines and links.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

Outline box(double left, double bottom, double right, double top) {
  return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

void add(Building& building, AreaKind kind, double level, Outline outline, const char* id = "") {
  Area area;
  area.id = *id != 0 ? std::string(id) + "@" + std::to_string(static_cast<int>(level))
                     : "a" + std::to_string(building.areas.size());
  area.source = *id != 0 ? id : area.id;
  area.kind = kind;
  area.level = level;
  area.shape = {{std::move(outline), {}}};
  building.areas.push_back(std::move(area));
}

// Storeys from 0 on, each with a hall of 20 m by 20 m.
Building halls(int storeys) {
  Building building;
  for (int level = 0; level < storeys; ++level) {
    Storey storey;
    storey.id = std::to_string(level);
    storey.ordinal = level;
    building.storeys.push_back(storey);
    add(building, AreaKind::walkway, level, box(0, 0, 20, 20));
  }
  return building;
}

// "stairs 0 1; elevator 0 1 2": kinds and the levels of their stops.
std::string made(Building& building, Options options = {}) {
  Findings findings;
  makeConnectors(building, options, findings);
  std::string text;
  for (const Connector& connector : building.connectors) {
    constexpr const char* words[] = {"elevator", "escalator", "stairs", "ramp", "walkway"};
    text += (text.empty() ? "" : "; ") + std::string(words[static_cast<int>(connector.kind)]);
    for (const Stop& stop : connector.stops)
      text += " " + std::to_string(static_cast<int>(stop.spot.level));
  }
  return text;
}

}  // namespace

TEST(Connectors, FollowFromShapes) {
  const Outline low = box(8, 8, 10, 13);
  const struct {
    const char* name;
    std::vector<std::pair<AreaKind, std::pair<double, Outline>>> areas;
    const char* expected;
  } cases[] = {
      {"lifts stack, also across a storey that does not show them",
       {{AreaKind::elevator, {0, box(5, 5, 7, 7)}},
        {AreaKind::elevator, {1, box(5.5, 5, 7.5, 7)}},
        {AreaKind::elevator, {3, box(5.5, 5, 7.5, 7)}}},
       "elevator 0 1 3"},
      {"lifts side by side",
       {{AreaKind::elevator, {0, box(5, 5, 7, 7)}}, {AreaKind::elevator, {1, box(7, 5, 9, 7)}}},
       "elevator 0; elevator 1"},
      {"stairs on top of each other",
       {{AreaKind::stairs, {0, low}}, {AreaKind::stairs, {1, low}}, {AreaKind::stairs, {2, low}}},
       "stairs 0 1 2"},
      {"flights end to end",
       {{AreaKind::stairs, {0, low}}, {AreaKind::stairs, {1, box(8, 13.2, 10, 18)}}},
       "stairs 0 1"},
      {"lifts near each other",
       {{AreaKind::elevator, {0, low}}, {AreaKind::elevator, {1, box(8, 15, 10, 17)}}},
       "elevator 0; elevator 1"},
      {"flights that can only belong together",
       {{AreaKind::escalator, {0, low}}, {AreaKind::escalator, {1, box(12, 15, 18, 17)}}},
       "escalator 0 1"},
      {"long flights in line with a gap",
       {{AreaKind::escalator, {0, box(8, 1, 9, 6)}}, {AreaKind::escalator, {1, box(8, 12, 9, 17)}}},
       "escalator 0 1"},
      {"side by side, each with its own",
       {{AreaKind::escalator, {0, box(8, 1, 9, 6)}},
        {AreaKind::escalator, {0, box(9.2, 1, 10.2, 6)}},
        {AreaKind::escalator, {1, box(9.2, 1, 10.2, 6)}},
        {AreaKind::escalator, {1, box(8, 1, 9, 6)}}},
       "escalator 0 1; escalator 0 1"},
      {"a flight in two parts, on both storeys",
       {{AreaKind::escalator, {0, box(8, 1, 9, 6)}},
        {AreaKind::escalator, {0, box(8, 6, 9, 11)}},
        {AreaKind::escalator, {1, box(8, 1, 9, 6)}},
        {AreaKind::escalator, {1, box(8, 6, 9, 11)}}},
       "escalator 0 1"},
      {"a flight that passes two storeys",
       {{AreaKind::escalator, {0, low}}, {AreaKind::escalator, {3, low}}},
       "escalator 0 3"},
      {"steps within a hall", {{AreaKind::stairs, {3, box(4, 10, 6, 12)}}}, "stairs 3 3"},
      {"an escalator to what is not drawn", {{AreaKind::escalator, {3, low}}}, "escalator 3"},
      {"escalators between two heights of a storey",
       {{AreaKind::stairs, {3, low}},
        {AreaKind::escalator, {3, box(10.1, 8, 11.1, 13)}},
        {AreaKind::stairs, {3, box(11.2, 8, 13, 13)}}},
       "stairs 3 3; escalator 3 3; stairs 3 3"},
  };
  for (const auto& [name, areas, expected] : cases) {
    SCOPED_TRACE(name);
    Building building = halls(4);
    for (const auto& [kind, place] : areas) add(building, kind, place.first, place.second);
    EXPECT_EQ(made(building), expected);
  }
}

TEST(Connectors, FlightDrawnOnceLeadsToTheNextHall) {
  Building building = halls(1);
  Storey upper;
  upper.id = "1";
  upper.ordinal = 1;
  building.storeys.push_back(upper);
  add(building, AreaKind::walkway, 1, box(0, 13.1, 20, 20));
  add(building, AreaKind::escalator, 0, box(8, 8, 9, 13));
  building.areas.back().direction = Direction::backward;
  ASSERT_EQ(made(building), "escalator 0 1");
  const std::vector<Stop>& stops = building.connectors.front().stops;
  EXPECT_NEAR(stops[0].spot.position.y, 8.0, 0.2);
  EXPECT_NEAR(stops[1].spot.position.y, 13.0, 0.2);
  EXPECT_FALSE(stops[0].enter);  // it leads down
  EXPECT_FALSE(stops[1].leave);
}

// A flight that is drawn on both storeys, in a gap of the upper hall: it leads to the nearer edge.
TEST(Connectors, FlightsLeadFromSpaceToSpace) {
  for (const bool north : {true, false}) {
    Building building = halls(1);
    building.storeys.emplace_back().ordinal = 1;
    add(building, AreaKind::walkway, 1, north ? box(0, 16, 20, 20) : box(0, 0, 20, 5));
    for (const double level : {0.0, 1.0})
      add(building, AreaKind::escalator, level, box(8, 8, 9, 13));
    ASSERT_EQ(made(building), "escalator 0 1");
    const std::vector<Stop>& stops = building.connectors.front().stops;
    EXPECT_NEAR(stops[0].spot.position.y, north ? 8.0 : 13.0, 0.2);
    EXPECT_NEAR(stops[1].spot.position.y, north ? 13.0 : 8.0, 0.2);
    // Nothing is drawn between it and the edge, so a path is assumed.
    ASSERT_EQ(building.lines.size(), 1U);
    EXPECT_EQ(building.lines.front().levels, std::vector<double>{1.0});
    EXPECT_NEAR(building.lines.front().points.back().y, north ? 17.0 : 4.0, 0.2);
  }
}

// Two flights that cross each other, each drawn on both storeys up to where the other one lies
// above it: steps are drawn only where one enters.
TEST(Connectors, FlightsAreEnteredWhereStepsAreDrawn) {
  Building building = halls(2);
  const auto addFlight = [&](double level, double bottom, double top, double steps) {
    add(building, AreaKind::stairs, level, box(8, bottom, 10, top));
    building.areas.back().stepEdges = {{Point{8, steps}, Point{10, steps}}};
  };
  addFlight(0, 5, 10, 5.3);
  addFlight(0, 10.6, 15, 14.7);
  addFlight(1, 5, 10, 5.3);
  addFlight(1, 10.6, 15, 14.7);
  ASSERT_EQ(made(building), "stairs 0 1; stairs 0 1");
  for (const Connector& connector : building.connectors)
    EXPECT_NEAR(
        package::distance(connector.stops[0].spot.position, connector.stops[1].spot.position), 10.0,
        0.3);

  // Steps along both long sides: they join two parts of the storey, although one end touches a hall
  // of the next one.
  Building terrace = halls(1);
  terrace.storeys.emplace_back().ordinal = 1;
  add(terrace, AreaKind::walkway, 1, box(0, 13.1, 20, 20));
  add(terrace, AreaKind::stairs, 0, box(8, 8, 10, 13));
  terrace.areas.back().stepEdges = {{Point{8.3, 8}, Point{8.3, 13}},
                                    {Point{9.7, 8}, Point{9.7, 13}}};
  EXPECT_EQ(made(terrace), "stairs 0 0");
  terrace.areas.back().stepEdges.clear();
  EXPECT_EQ(made(terrace), "stairs 0 1");
}

// Two flights far from each other, but signs name the exit to which both lead. Of another exit,
// only the lower flight is drawn.
TEST(Connectors, FlightsLeadToTheExitsOnTheirSigns) {
  Building building = halls(2);
  const auto addExit = [&](const char* name, double level, Point position) {
    Place& exit = building.places.emplace_back();
    exit.id = name + std::to_string(building.places.size());
    exit.names.name = name;
    exit.category = "F108";
    exit.spots = {{level, position}};
  };
  add(building, AreaKind::stairs, 0, box(-6, 1, 0, 3));
  add(building, AreaKind::stairs, 0, box(-6, 9, 0, 11));
  add(building, AreaKind::stairs, 1, box(-30, 9, -26, 11));
  addExit("A1", 0, {-6, 2});
  addExit("A1", 1, {1, 18});
  addExit("A2", 0, {-6, 10});
  addExit("A2", 1, {-30, 10});
  addExit("A3", 1, {-6, 2});  // the sign at the end of another storey names another exit
  ASSERT_EQ(made(building), "stairs 0 1; stairs 0 1");
  EXPECT_NEAR(building.connectors[0].stops[1].spot.position.y, 18.0, 0.1);
  EXPECT_NEAR(building.connectors[1].stops[1].spot.position.x, -30.0, 0.1);
}

TEST(Connectors, FollowFromWhatTheSourceSays) {
  Building building = halls(3);
  // A list of levels wins over shapes, doors over contacts.
  for (const double level : {0.0, 2.0}) {
    add(building, AreaKind::elevator, level, box(5, 5, 7, 7), "lift");
    building.areas.back().connector = "lift";
    building.areas.back().wheelchair = Wheelchair::no;
    building.areas.back().access = Access::staff;
    if (level == 2.0) building.areas.back().names.name = "Lift A";
    Door door;
    door.id = "door" + std::to_string(static_cast<int>(level));
    door.level = level;
    door.position = {7, 6};
    door.areas = {building.areas.back().id, "hall"};
    building.doors.push_back(door);
  }
  Line steps;
  steps.id = "steps";
  steps.kind = LineKind::escalator;
  steps.levels = {0, 1};
  steps.pointLevels = {1, 0};
  steps.points = {{12, 12}, {12, 4}};
  steps.direction = Direction::forward;
  building.lines.push_back(steps);
  ConnectorHint hint;
  hint.id = "hint";
  hint.kind = ConnectorKind::stairs;
  hint.spots = {{1, {15, 15}}, {2, {16, 16}}};
  building.connectorHints.push_back(hint);
  ASSERT_EQ(made(building), "escalator 0 1; elevator 0 2; stairs 1 2");
  const Connector& escalator = building.connectors[0];
  EXPECT_EQ(escalator.stops[0].spot.position.y, 4.0);
  EXPECT_FALSE(escalator.stops[0].enter);  // the line leads down
  const Connector& lift = building.connectors[1];
  EXPECT_FALSE(lift.accessible);
  EXPECT_EQ(lift.access, Access::staff);
  EXPECT_EQ(lift.names.name, "Lift A");
  EXPECT_EQ(lift.stops[0].spot.position.x, 7.0);
  EXPECT_EQ(lift.stops[0].area, "lift@0");
}

// The level of an end is wrong where nothing is drawn on it, and a path of another storey goes on.
TEST(Connectors, FlightsEndOnThePathsThatTheyContinue) {
  Building building = halls(2);
  building.storeys.emplace_back().ordinal = 2;
  const auto addLine = [&](LineKind kind, std::vector<double> levels, std::vector<Point> points,
                           std::vector<std::string> ids) {
    Line& line = building.lines.emplace_back();
    line.id = "line" + std::to_string(building.lines.size());
    line.kind = kind;
    line.levels = std::move(levels);
    line.points = std::move(points);
    line.pointIds = std::move(ids);
  };
  addLine(LineKind::steps, {0, 2}, {{19, 5}, {30, 5}}, {"bottom", "top"});
  addLine(LineKind::path, {1}, {{30, 5}, {30, 15}, {19, 15}}, {"top", "bend", "hall"});
  ConnectorHint lift;
  lift.id = lift.source = "bend";
  lift.spots = {{0, {30, 15}}, {2, {30, 15}}};
  building.connectorHints.push_back(lift);
  ConnectorHint indoors = lift;
  indoors.id = indoors.source = "hall";
  indoors.spots = {{0, {19, 15}}, {2, {19, 15}}};
  building.connectorHints.push_back(indoors);
  // A second flight on the storey where the first ends.
  addLine(LineKind::steps, {1}, {{30, 5}, {36, 5}}, {"top", "street"});
  Findings findings;
  makeConnectors(building, {}, findings);
  EXPECT_EQ(findings.countOf("connector-level-contradicted"), 5U);
  ASSERT_EQ(building.connectors.size(), 3U);
  ASSERT_EQ(building.connectors[0].stops.size(), 3U);
  EXPECT_EQ(building.connectors[0].stops[1].spot.level, 1.0);
  EXPECT_EQ(building.connectors[0].stops[2].spot.position.x, 36.0);
  // Nobody knows which level of the elevator outdoors is wrong.
  EXPECT_EQ(building.connectors[1].stops.back().spot.level, 2.0);
  EXPECT_EQ(building.connectors[2].stops.back().spot.level, 1.0);
}

TEST(Connectors, OfLinksEndWherePeopleWalkOn) {
  Building building = halls(2);
  // Two flights with a landing, and a one-way escalator beside them.
  for (const auto& [id, level, x] :
       {std::tuple("a", 0, 1.0), {"b", 0, 2.0}, {"c", 0, 4.0}, {"d", 1, 6.0}, {"e", 1, 8.0}})
    building.sourceNodes.push_back({id, {static_cast<double>(level), {x, 5.0}}});
  const auto link = [&](const char* id, const char* from, const char* to, LinkKind kind,
                        Direction direction = Direction::both) {
    SourceLink made;
    made.id = id;
    made.from = from;
    made.to = to;
    made.kind = kind;
    made.direction = direction;
    building.sourceLinks.push_back(made);
  };
  link("1", "a", "b", LinkKind::walk);
  link("2", "b", "c", LinkKind::stairs);
  link("3", "c", "d", LinkKind::stairs);
  link("4", "d", "e", LinkKind::walk);
  link("5", "a", "e", LinkKind::escalator, Direction::forward);
  Building derived = building;
  EXPECT_EQ(made(building), "stairs 0 1; escalator 0 1");
  EXPECT_EQ(building.connectors[0].stops[0].spot.position.x, 2.0);
  EXPECT_FALSE(building.connectors[1].stops[0].leave);
  EXPECT_FALSE(building.connectors[1].stops[1].enter);
  Options options;
  options.network = NetworkChoice::derive;
  EXPECT_EQ(made(derived, options), "");
}

}  // namespace orivanta::importer
