#include "Source/Guidance/Guide.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

#include "Source/Guidance/Network/CostMatrix.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/GuideReference.hpp"
#include "Tests/Support/Networks.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::guidance {
namespace {

using Kind = Problem::Kind;

template <class Record>
std::shared_ptr<Record> withId(const std::vector<std::shared_ptr<Record>>& records,
                               std::string_view id) {
  for (const auto& record : records)
    if (record->id == id) return record;
  return nullptr;
}

// The venue of TwoFloorVenue, in which l1 is at n1 and l2, open from 9 to 18, at u2.
class GuideTest : public ::testing::Test {
 protected:
  explicit GuideTest() {
    records_.locations = R"([
        {"id": "l1", "name": "Bakery", "type": "shop", "nodes": [{"node": "n1"}],
         "categories": ["c2"]},
        {"id": "l2", "name": "Book Shop", "type": "shop", "nodes": [{"node": "u2"}],
         "categories": ["c1"], "hours": "09:00-18:00"},
        {"id": "l3", "name": "Nowhere", "type": "shop", "nodes": []}])";
    reload();
  }

  void reload() {
    venue_ = records_.load();
    guide_ = Guide::make(*venue_);
    ASSERT_NE(guide_, nullptr);
  }

  std::shared_ptr<Node> node(std::string_view id) const { return withId(*venue_->nodes, id); }
  std::shared_ptr<Location> place(std::string_view id) const {
    return withId(*venue_->locations, id);
  }
  std::shared_ptr<Map> floor(std::string_view id) const { return withId(*venue_->maps, id); }
  std::shared_ptr<Category> category(std::string_view id) const {
    return withId(*venue_->categories, id);
  }

  Plan plan(std::vector<Stop> stops, const Profile& profile = {}, Closures closures = {}) const {
    Request request;
    request.stops = std::move(stops);
    request.profile = profile;
    request.closures = std::move(closures);
    return guide_->plan(request);
  }

  // The identifiers of the nodes of each leg, a ride in brackets.
  static std::string described(const Itinerary& itinerary) {
    std::string text;
    for (const Leg& leg : itinerary.legs) {
      std::string names;
      for (const auto& each : leg.nodes) names += (names.empty() ? "" : " ") + *each->id;
      text += leg.kind == Leg::Kind::ride ? "[" + names + "]" : "(" + names + ")";
    }
    return text;
  }

  test::TwoFloorVenue records_;
  std::shared_ptr<Venue> venue_;
  std::shared_ptr<const Guide> guide_;
};

TEST_F(GuideTest, MakesLegsWithLengthsAndTimes) {
  const Plan plan = this->plan({place("l1"), place("l2")}, Profile::stepFree());
  ASSERT_EQ(plan.itineraries.size(), 1U);
  const Itinerary& itinerary = plan.itineraries.front();
  EXPECT_EQ(described(itinerary), "(n1 n2 n3)[n3 u1](u1 u2)");
  const Leg& ride = itinerary.legs[1];
  EXPECT_EQ(itinerary.legs[0].meters, 3.0);  // two units are a meter
  EXPECT_EQ(itinerary.legs[0].map, floor("g"));
  EXPECT_EQ(ride.seconds, 25.0 + 1.5 * 5.0);
  EXPECT_EQ(ride.connector, withId(*venue_->vortices, "lift"));
  EXPECT_EQ(ride.connectorKind, ConnectorKind::lift);
  EXPECT_EQ(ride.floorsPassed, 1);
  EXPECT_EQ(itinerary.costMilliseconds, 3000 + 32500 + 1500);
  EXPECT_TRUE(itinerary.hasScale);
  EXPECT_EQ(itinerary.path().size(), 5U);
  ASSERT_EQ(itinerary.visits.size(), 2U);
  EXPECT_EQ(itinerary.visits[1].leg, 3U);
  EXPECT_EQ(itinerary.visits[1].location, place("l2"));
}

TEST_F(GuideTest, SpeaksOnlyNamesOnSigns) {
  records_.locations = R"([
      {"id": "l1", "name": "Unnamed 17", "type": "shop", "nodes": [{"node": "n1"}],
       "nameGenerated": true},
      {"id": "l2", "name": "Book Shop", "type": "shop", "nodes": [{"node": "u2"}]}])";
  records_.vortices = R"([
      {"id": "lift", "name": "Lift A", "type": "elevator", "nodes": ["n3", "u1"]},
      {"id": "stairs", "name": "Shops 3", "type": "stairs", "categories": ["c1"],
       "nodes": ["n2", "u2"]}])";
  reload();
  const auto connector = [&](std::size_t i) {
    return std::shared_ptr<Location>(venue_->vortices->at(i));
  };
  for (const auto& [place, name] : {std::pair(place("l1"), ""),
                                    {place("l2"), "Book Shop"},
                                    {connector(0), "Lift A"},
                                    {connector(1), ""}}) {
    EXPECT_EQ(guide_->spokenName(place), name);
    EXPECT_EQ(guide_->steps(plan({place, node("u1")}).itineraries.at(0)).front().name, name);
  }
  EXPECT_EQ(guide_->spokenName(category("c1")), "Shops");
  EXPECT_EQ(guide_->spokenName(node("n1")), "");
}

TEST_F(GuideTest, CountsTheFloorsThatARidePasses) {
  records_.maps.replace(0, 1, R"([{"id": "m", "name": "Mezzanine", "elevation": 5},)");
  records_.nodes.replace(0, 1, R"([{"id": "m1", "map": "m", "x": 9, "y": 9},)");
  const std::string connectors = records_.vortices;
  const struct {
    const char* more;  // connectors
    int floors;
  } cases[] = {
      {"", 1},
      {R"(, {"id": "a", "name": "a", "type": "stairs", "nodes": ["n4", "m1"]})",
       1},  // of another building
      {R"(, {"id": "a", "name": "a", "type": "stairs", "nodes": ["n4", "m1"]},
            {"id": "b", "name": "b", "type": "stairs", "nodes": ["m1", "u1"]})",
       2},
      {R"(, {"id": "a", "name": "a", "type": "elevator", "nodes": ["n4", "m1", "u1"]})", 2},
  };
  for (const auto& each : cases) {
    records_.vortices = connectors;
    records_.vortices.insert(connectors.rfind(']'), each.more);
    reload();
    const auto floorsFrom = [&](const char* from, const char* to) {
      return plan({node(from), node(to)}, Profile::stepFree())
          .itineraries.front()
          .legs.front()
          .floorsPassed;
    };
    EXPECT_EQ(floorsFrom("n3", "u1"), each.floors) << each.more;
    EXPECT_EQ(floorsFrom("u1", "n3"), -each.floors) << each.more;
  }
}

TEST_F(GuideTest, ReportsProblems) {
  const auto foreign = test::makeNode(0, 0);
  const auto free = Profile::stepFree();
  const struct {
    std::vector<Stop> stops;
    Profile profile;
    std::vector<std::string> closed;
    Kind kind;
    std::size_t stop;
  } cases[] = {
      {{}, {}, {}, Kind::tooFewStops, 0},
      {{node("n1")}, {}, {}, Kind::tooFewStops, 0},
      {std::vector<Stop>(51, node("n1")), {}, {}, Kind::tooManyStops, 50},
      {{node("n1"), foreign}, {}, {}, Kind::unknownPlace, 1},
      {{std::shared_ptr<Location>(), node("n1")}, {}, {}, Kind::unknownPlace, 0},
      {{node("n1"), std::shared_ptr<Category>()}, {}, {}, Kind::unknownPlace, 1},
      {{node("n1"), Position{}}, {}, {}, Kind::unknownPlace, 1},
      {{node("n1"), place("l3")}, {}, {}, Kind::noNodes, 1},
      {{node("n1"), node("n2"), node("n4")}, {}, {}, Kind::unreachable, 2},
      {{node("n1"), node("u2")}, free, {"lift"}, Kind::closed, 1},
      {{node("n1"), node("u2")}, {}, {"lift", "stairs"}, Kind::closed, 1},
      {{node("n1"), place("l2")}, {}, {"l2"}, Kind::closed, 1},
      {{node("n1"), node("u1")}, {}, {"u1"}, Kind::closed, 1},
      {{node("n1"), category("c1")}, {}, {"l1", "l2"}, Kind::closed, 1},
      {{node("n1"), node("u2"), node("n4")}, free, {"lift"}, Kind::unreachable, 2},
      {{node("n1"), NodeList{node("n4"), node("n2")}, node("n4")},
       {},
       {"u1"},
       Kind::unreachable,
       2},
      {{node("n1"), PlaceList{place("l1"), place("l2")}, node("n4")}, {}, {}, Kind::unreachable, 2},
      {{node("n1"), PlaceList{place("l1"), place("l2")}}, {}, {"l1", "l2"}, Kind::closed, 1},
      {{node("n1"), PlaceList{place("l1"), nullptr}}, {}, {}, Kind::unknownPlace, 1},
      {{node("n1"), PlaceList()}, {}, {}, Kind::noNodes, 1},
  };
  for (const auto& each : cases) {
    const Plan plan = this->plan(each.stops, each.profile, Closures(each.closed));
    ASSERT_TRUE(plan.problem) << (&each - cases);
    EXPECT_TRUE(plan.itineraries.empty());
    EXPECT_EQ(plan.problem->kind, each.kind) << (&each - cases);
    EXPECT_EQ(plan.problem->stop, each.stop) << (&each - cases);
  }
  Profile noLift = free;
  noLift.lifts = Use::forbidden;
  EXPECT_EQ(plan({node("n1"), node("u2")}, noLift).problem->kind, Kind::onlyWithSteps);
  EXPECT_FALSE(plan({place("l2"), node("n3")}, {}, Closures({"l2"})).problem);  // can be left
  const std::vector<Stop> many(2001, node("n1"));
  EXPECT_FALSE(guide_->costs(many, many));
  const PlaceList all{place("l1"), place("l2")};
  EXPECT_FALSE(guide_->costs(std::vector<Stop>(Guide::mostCostStarts + 1, node("n1")), {all}));
  EXPECT_FALSE(guide_->costs({all}, std::vector<Stop>(Guide::mostCostDestinations + 1, all)));
  const GuideData data(*venue_);
  const auto rows = [&](std::size_t mostNodes) {  // to overlapping nodes
    return costMatrix(data, {node("n2")}, {place("l2"), all, node("n4")}, {}, {}, mostNodes, {});
  };
  EXPECT_FALSE(rows(3));
  const auto costTo = [&](const Stop& to) {
    return plan({node("n2"), to}).itineraries.at(0).costMilliseconds;
  };
  EXPECT_EQ(rows(4).value().at(0),
            (std::vector<std::int64_t>{costTo(place("l2")), costTo(all), -1}));
}

// The nodes i and j of the room are connected, and j is next to the door.
TEST_F(GuideTest, LeavesAClosedRoom) {
  records_.nodes = R"([
      {"id": "i", "map": "g", "x": 0, "y": 0, "paths": [{"node": "j"}]},
      {"id": "j", "map": "g", "x": 10, "y": 0, "paths": [{"node": "i"}, {"node": "d"}]},
      {"id": "d", "map": "g", "x": 20, "y": 0, "paths": [{"node": "j"}, {"node": "o"}]},
      {"id": "o", "map": "g", "x": 30, "y": 0, "paths": [{"node": "d"}]}])";
  records_.polygons = R"([{"id": "p1", "map": "g", "entrances": [{"id": "d"}]}])";
  records_.locations = R"([{"id": "l", "name": "Shop", "type": "shop", "hours": "09:00-18:00",
      "polygons": [{"id": "p1"}], "nodes": [{"node": "i"}, {"node": "j"}]},
      {"id": "k", "name": "Kiosk", "type": "shop", "nodes": [{"node": "i"}]}])";
  reload();
  const std::vector<Stop> starts{node("i"), Position{floor("g"), 5, 0}, place("k"), place("l")};
  for (const Stop& start : starts) {
    Request request;
    request.stops = {start, node("o")};
    request.closures = Closures({"l"});
    EXPECT_FALSE(guide_->plan(request).problem) << start.index();
    EXPECT_GE(guide_->costs({start}, {node("o")}, {}, request.closures).value()[0][0], 0);
    std::swap(request.stops[0], request.stops[1]);
    EXPECT_EQ(guide_->plan(request).problem->kind, Kind::closed) << start.index();
    request.closures = {};
    EXPECT_FALSE(guide_->plan(request).problem) << start.index();
    request.at = LocalTime{2026, 11, 20, 20, 0};
    EXPECT_EQ(guide_->plan(request).problem->kind, Kind::closed) << start.index();
    std::swap(request.stops[0], request.stops[1]);
    EXPECT_FALSE(guide_->plan(request).problem) << start.index();
  }
  Request request;
  request.stops = {node("o"), place("l")};
  request.at = LocalTime{2026, 11, 20, 8, 59};
  request.profile.walkingMetersPerSecond = 0.1;  // it opens on the way
  EXPECT_FALSE(guide_->plan(request).problem);
}

TEST_F(GuideTest, ObeysOpeningHours) {
  Request request;
  request.stops = {node("n1"), place("l2")};
  request.profile = Profile::stepFree();  // 37 s
  const auto kindAt = [&](int hour, int minute) -> std::optional<Kind> {
    request.at = LocalTime{2026, 11, 20, hour, minute};
    const Plan plan = guide_->plan(request);
    return plan.problem ? std::optional(plan.problem->kind) : std::nullopt;
  };
  EXPECT_EQ(kindAt(8, 59), Kind::closed);
  EXPECT_EQ(kindAt(9, 0), std::nullopt);
  EXPECT_EQ(kindAt(17, 59), std::nullopt);
  request.profile.walkingMetersPerSecond = 0.05;
  EXPECT_EQ(kindAt(17, 59), Kind::closesBeforeArrival);
  EXPECT_EQ(kindAt(8, 59), std::nullopt);  // it opens on the way
  request.visitsClosedStops = true;
  request.stops.insert(request.stops.begin() + 1, place("l2"));
  for (const auto& [hour, isClosed] : {std::pair(17, true), {12, false}}) {
    EXPECT_EQ(kindAt(hour, 59), std::nullopt);
    EXPECT_EQ(guide_->plan(request).itineraries.at(0).visits[2].isClosed, isClosed) << hour;
  }
  request.stops[1] = PlaceList{place("l2")};
  EXPECT_EQ(kindAt(17, 59), Kind::closesBeforeArrival) << "one of several places must be open";
  request.stops = {node("n1"), category("c1")};
  request.closures = Closures({"l1"});
  EXPECT_EQ(kindAt(17, 59), Kind::closesBeforeArrival);
  EXPECT_EQ(kindAt(8, 59), std::nullopt);
  EXPECT_EQ(kindAt(3, 0), Kind::closed);
  request.closures = {};
  EXPECT_EQ(kindAt(17, 59), std::nullopt);  // the other place of the category has no hours
  request.stops[0] = node("u2");
  request.at = LocalTime{2026, 11, 20, 20, 0};
  EXPECT_EQ(guide_->plan(request).itineraries.front().visits[1].location, place("l1"));
  request.at = LocalTime{2026, 11, 20, 17, 59};
  request.stops[0] = node("n3");
  EXPECT_EQ(guide_->plan(request).itineraries.front().visits[1].location, place("l1"));
}

TEST_F(GuideTest, TellsThatAPlaceClosesIfTheOthersAreOutOfReach) {
  records_.locations.replace(records_.locations.find("n1"), 2, "n4");
  reload();
  Request request;
  request.stops = {node("n1"), category("c1")};
  request.profile.walkingMetersPerSecond = 0.01;
  request.at = LocalTime{2026, 11, 20, 17, 59};
  EXPECT_EQ(guide_->plan(request).problem->kind, Kind::closesBeforeArrival);
  EXPECT_EQ(
      guide_->nearest(node("n1"), category("c1"), request.profile, {}, request.at).problem->kind,
      Kind::closesBeforeArrival);
  records_.venue = R"({"id": "v", "slug": "small", "name": "Without a scale"})";
  reload();
  request.stops = {node("n1"), category("c1")};
  EXPECT_FALSE(guide_->plan(request).problem);
}

TEST_F(GuideTest, FindsTheNearestPlaces) {
  const Plan plan = guide_->nearest(node("n3"), category("c1"), {}, {}, std::nullopt, 5);
  ASSERT_EQ(plan.itineraries.size(), 2U);  // those of the category below, too
  EXPECT_EQ(plan.itineraries[0].visits[1].location, place("l1"));
  EXPECT_EQ(plan.itineraries[1].visits[1].location, place("l2"));
  EXPECT_EQ(guide_->nearest(node("n3"), category("c1"), {}, Closures({"l1"}))
                .itineraries.front()
                .visits[1]
                .location,
            place("l2"));
  EXPECT_EQ(guide_->nearest(node("n4"), category("c1")).problem->kind, Kind::unreachable);
  EXPECT_EQ(guide_->nearest(node("n3"), node("n1"), {}, {}, {}, 5).itineraries.size(), 1U);
}

TEST_F(GuideTest, BeginsAndEndsInMidEdge) {
  const Position west{floor("g"), 1.5, 2.0};
  const Position east{floor("g"), 4.5, -1.0};
  const auto snap = guide_->snap(west);
  ASSERT_TRUE(snap);
  EXPECT_EQ(snap->x, 1.5);
  EXPECT_EQ(snap->y, 0.0);
  EXPECT_EQ(snap->distance, 2.0);
  EXPECT_FALSE(guide_->snap({nullptr, 0, 0}));
  EXPECT_FALSE(guide_->snap({floor("g"), std::nan(""), 0}));
  Profile slow;
  slow.walkingMetersPerSecond = 1.0;
  const auto pathOf = [&](const Stop& from, const Stop& to) {
    const Plan plan = this->plan({from, to}, slow);
    if (plan.problem) return std::string("none");
    std::string text;
    for (const auto& each : plan.itineraries[0].path())
      text += fmt::format("{} ", each->id->empty() ? fmt::format("{}", each->x) : *each->id);
    return text + std::to_string(plan.itineraries[0].costMilliseconds);
  };
  EXPECT_EQ(pathOf(west, east), "1.5 n2 4.5 1500");
  EXPECT_EQ(pathOf(east, west), "4.5 n2 1.5 1500");
  EXPECT_EQ(pathOf(west, node("n1")), "1.5 n1 750");
  EXPECT_EQ(pathOf(west, Position{floor("g"), 2.25, 0.0}), "1.5 2.25 375");
  EXPECT_EQ(pathOf(Position{floor("g"), 2.25, 0.0}, west), "2.25 1.5 375");
  EXPECT_EQ(pathOf(west, west), "1.5 1.5 0");
  EXPECT_EQ(guide_->leadToAny({west, node("n4"), Position{}}, {east}),
            (std::vector{true, false, false}));
  const foundation::CancellationSource canceled;
  canceled.cancel();
  EXPECT_EQ(guide_->leadToAny({west}, {east}, {}, {}, canceled.token()), std::vector{false});
  EXPECT_TRUE(guide_->steps(plan({west, east}).itineraries[0], canceled.token()).empty());
}

TEST_F(GuideTest, AvoidsRoomsOnTheWay) {
  records_.nodes = R"([
      {"id": "a", "map": "g", "x": 0, "y": 0, "paths": [{"node": "b"}, {"node": "r"}]},
      {"id": "r", "map": "g", "x": 10, "y": 0, "paths": [{"node": "a"}, {"node": "c"}]},
      {"id": "c", "map": "g", "x": 20, "y": 0, "paths": [{"node": "b"}, {"node": "r"}]},
      {"id": "b", "map": "g", "x": 10, "y": 20, "paths": [{"node": "a"}, {"node": "c"}]}])";
  records_.polygons = R"([{"id": "p1", "map": "g", "entrances": [{"id": "a"}, {"id": "c"}]}])";
  records_.locations = R"([{"id": "l", "name": "Toilet", "type": "amenity", "polygons":
      [{"id": "p1"}], "nodes": [{"node": "r"}, {"node": "a"}]}])";
  reload();
  const auto described = [&](std::vector<Stop> stops) {
    return GuideTest::described(plan(std::move(stops)).itineraries.front());
  };
  EXPECT_EQ(described({node("a"), node("c")}), "(a b c)");
  EXPECT_EQ(described({node("a"), place("l")}), "(a r)");
  EXPECT_EQ(described({place("l"), node("c")}), "(r c)");
  EXPECT_EQ(described({node("a"), place("l"), node("c")}), "(a r)(r c)");
  EXPECT_EQ(described({node("a"), node("a")}), "(a)");
  const auto through = plan({node("a"), node("c")}, {}, Closures({"b"})).itineraries.front();
  EXPECT_EQ(GuideTest::described(through), "(a r c)");
  EXPECT_EQ(guide_->steps(through).front().through, std::vector{place("l")});
}

TEST_F(GuideTest, OffersAlternatives) {
  Request request;
  request.stops = {node("n2"), node("u1")};
  request.alternatives = 9;
  const Plan found = guide_->plan(request);
  ASSERT_EQ(found.itineraries.size(), 2U);
  EXPECT_EQ(described(found.itineraries[0]), "[n2 u2](u2 u1)");
  EXPECT_EQ(described(found.itineraries[1]), "(n2 n3)[n3 u1]");
  EXPECT_LE(found.itineraries[0].costMilliseconds, found.itineraries[1].costMilliseconds);
  EXPECT_EQ(found.itineraries[1].costMilliseconds,
            plan(request.stops, {}, Closures({"stairs"})).itineraries[0].costMilliseconds);
}

TEST_F(GuideTest, DescribesAGivenPath) {
  const NodeList path{node("n1"), node("n2"), node("u2")};
  const auto itinerary = guide_->itinerary(path, nullptr, place("l2"));
  ASSERT_TRUE(itinerary);
  EXPECT_EQ(described(*itinerary), "(n1 n2)[n2 u2]");
  EXPECT_EQ(itinerary->visits[1].location, place("l2"));
  EXPECT_EQ(itinerary->costMilliseconds,
            plan({node("n1"), node("u2")}).itineraries[0].costMilliseconds);
  EXPECT_FALSE(guide_->itinerary({}));
  EXPECT_FALSE(guide_->itinerary({node("n1"), node("n3")}));
  EXPECT_FALSE(guide_->itinerary({test::makeNode(0, 0)}));
}

TEST_F(GuideTest, OrdersManyStops) {
  for (const bool oneWay : {false, true}) {
    std::string nodes;
    for (int i = 0; i <= 20; ++i)
      nodes += fmt::format(
          R"({}{{"id": "s{}", "map": "g", "x": {}, "y": 0, "paths": [{{"node": "s{}"}}, {{"node": "s{}"}}]}})",
          i == 0 ? "" : ",", i, i, i + 1, oneWay ? i + 1 : i - 1);
    records_.nodes = "[" + nodes + "]";
    reload();
    Request request;
    request.bestOrder = true;
    for (const int i : {0, 9, 2, 17, 4, 13, 6, 15, 8, 1, 10, 19, 12, 5, 14, 7, 16, 3, 18, 11, 20})
      request.stops.emplace_back(node("s" + std::to_string(i)));
    const Plan plan = guide_->plan(request);
    ASSERT_FALSE(plan.problem) << oneWay;
    EXPECT_EQ(plan.itineraries.front().meters(), 10.0);
    const Position near{floor("g"), 19.2, 0};
    const Position far{floor("g"), 19.8, 0};
    EXPECT_TRUE(guide_->leadToAny({near}, {far})[0]);
    EXPECT_EQ(guide_->leadToAny({far}, {near})[0], !oneWay);
  }
}

TEST_F(GuideTest, VisitsAStopEarlierIfItCloses) {
  records_.locations.replace(records_.locations.find("u2"), 2, "n3");
  reload();
  Request request;
  request.stops = {node("n2"), place("l2"), node("n1"), node("u1")};
  request.bestOrder = true;
  request.profile.walkingMetersPerSecond = 0.05;
  for (const auto& [minute, first] : {std::pair(30, 2U), std::pair(59, 1U)}) {
    request.at = LocalTime{2026, 11, 20, 17, minute};
    const Plan plan = guide_->plan(request);
    ASSERT_FALSE(plan.problem) << minute;
    EXPECT_EQ(plan.itineraries.front().visits[1].stop, first) << minute;
  }
}

TEST_F(GuideTest, SurvivesHostileValues) {
  const double inf = std::numeric_limits<double>::infinity();
  for (const double value : {std::nan(""), inf, -inf, -1.0, 1e308, 0.0}) {
    reload();
    for (const auto& each : *venue_->nodes) each->multiplierWeight = each->constantWeight = value;
    floor("f1")->elevation = value;
    node("n2")->x = value;
    guide_ = Guide::make(*venue_);
    Profile profile;
    profile.walkingMetersPerSecond = value;
    const Plan plan = this->plan({node("n3"), place("l2")}, profile);
    ASSERT_FALSE(plan.problem) << value;
    EXPECT_GE(plan.itineraries[0].costMilliseconds, 0);
    this->plan({Position{floor("g"), value, value}, category("c1")}, profile);
    EXPECT_EQ(guide_->snap({floor("g"), value, value}).has_value(), std::abs(value) <= 1e9);
    records_.venue =
        fmt::format(R"({{"id": "v", "slug": "s", "name": "Mall", "unitsPerMetre": {}}})",
                    std::isfinite(value) ? value * 1e-9 : 1e-9);
    reload();
  }
  venue_->nodes->push_back(nullptr);
  EXPECT_NE(Guide::make(*venue_), nullptr);
  EXPECT_EQ(Guide::make(*Venue::make(*RawData::parse(records_.venue))), nullptr);
}

TEST_F(GuideTest, IsNotAffectedByTheNextLoadAndChangesOfRecords) {
  Request request;
  request.profile = Profile::stepFree();
  request.stops = {place("l1"), place("l2")};
  const auto expected = guide_->plan(request).itineraries.front();
  reload();
  request.stops = {place("l1"), place("l2")};
  test::TwoFloorVenue{.nodes = "[]"}.load();
  place("l2")->id = "n2";
  floor("f1")->elevation = 500;
  for (const auto& each : *venue_->vortices) each->accessible = false;
  for (const auto& each : *venue_->nodes) {
    each->multiplierWeight = each->constantWeight = each->z = 9;
    each->map = nullptr;
    each->id = "l2";
  }
  request.closures = Closures({"n2"});
  EXPECT_EQ(guide_->plan(request).problem->kind, Kind::closed);
  request.closures = {};
  const Plan plan = guide_->plan(request);
  ASSERT_FALSE(plan.problem);
  EXPECT_EQ(plan.itineraries.front().costMilliseconds, expected.costMilliseconds);
  EXPECT_EQ(plan.itineraries.front().seconds(), expected.seconds());
  EXPECT_NE(plan.itineraries.front().legs.back().map, nullptr);
}

TEST(GuideThreads, PlanConcurrently) {
  const auto venue = test::mallVenue(600, 3);
  const auto guide = Guide::make(*venue);
  const auto& nodes = *venue->nodes;
  const auto work = [&](std::size_t thread) {
    for (std::size_t i = 0; i < 30; ++i) {
      Request request;
      request.stops = {nodes[(thread * 97 + i * 31) % nodes.size()],
                       nodes[(thread * 61 + i * 17) % nodes.size()],
                       nodes[(thread + i * 13) % nodes.size()], nodes[i]};
      request.bestOrder = true;
      request.closures = Closures({*(*venue->vortices)[i % venue->vortices->size()]->id});
      request.alternatives = 1;
      const Plan plan = guide->plan(request);
      EXPECT_NE(plan.problem.has_value(), !plan.itineraries.empty());
      guide->snap({nodes[i]->map, nodes[i]->x, nodes[i]->y});
      if (i % 8 == 0) guide->costs({nodes[i]}, {nodes[thread]});
    }
  };
  std::vector<std::thread> threads;
  for (std::size_t thread = 0; thread < 8; ++thread) threads.emplace_back(work, thread);
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace orivanta::guidance
