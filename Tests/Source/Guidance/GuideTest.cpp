#include "Source/Guidance/Guide.hpp"

#include <fmt/format.h>

#include <cmath>
#include <limits>
#include <thread>

#include "Tests/Source/Guidance/GuideFixture.hpp"
#include "Tests/Support/GuideReference.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::guidance {
namespace {

using Kind = Problem::Kind;

class GuideTest : public GuideFixture {};

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
