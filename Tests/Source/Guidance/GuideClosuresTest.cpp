// Closed places, closed connectors, opening hours and other reasons why a guide has no answer.
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Network/CostMatrix.hpp"
#include "Tests/Source/Guidance/GuideFixture.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::guidance {
namespace {

using Kind = Problem::Kind;

class GuideClosuresTest : public GuideFixture {};

TEST_F(GuideClosuresTest, ReportsProblems) {
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
TEST_F(GuideClosuresTest, LeavesAClosedRoom) {
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

TEST_F(GuideClosuresTest, ObeysOpeningHours) {
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

TEST_F(GuideClosuresTest, TellsThatAPlaceClosesIfTheOthersAreOutOfReach) {
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

TEST_F(GuideClosuresTest, AvoidsRoomsOnTheWay) {
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
    return GuideFixture::described(plan(std::move(stops)).itineraries.front());
  };
  EXPECT_EQ(described({node("a"), node("c")}), "(a b c)");
  EXPECT_EQ(described({node("a"), place("l")}), "(a r)");
  EXPECT_EQ(described({place("l"), node("c")}), "(r c)");
  EXPECT_EQ(described({node("a"), place("l"), node("c")}), "(a r)(r c)");
  EXPECT_EQ(described({node("a"), node("a")}), "(a)");
  const auto through = plan({node("a"), node("c")}, {}, Closures({"b"})).itineraries.front();
  EXPECT_EQ(GuideFixture::described(through), "(a r c)");
  EXPECT_EQ(guide_->steps(through).front().through, std::vector{place("l")});
}

TEST_F(GuideClosuresTest, VisitsAStopEarlierIfItCloses) {
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

}  // namespace
}  // namespace orivanta::guidance
