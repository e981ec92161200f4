#include "Apps/Viewer/GuideWorker.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Apps/Viewer/RouteTitles.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::viewer {
namespace {

// Routes from n3, beside lift A; lift B leads from n1 to u2. The only place is at u2.
TEST(GuideWorker, ObeysTheHoursOfConnectors) {
  using Kind = guidance::Problem::Kind;
  const struct {
    int hour;
    const char *nameGenerated, *warning, *nearestElevator;
    std::optional<Kind> problem;
  } cases[] = {
      {12, "false", "", "A", {}},
      {19, "false", "Book Shop will be closed when you arrive.", "A", {}},
      {21, "true", "A stop of the route closes before you can get there.", "B", {}},
      {23, "false", "", "", Kind::closed},
  };
  for (const auto& each : cases) {
    test::TwoFloorVenue records;
    records.vortices = R"([
        {"id": "A", "name": "A", "type": "elevator", "hours": "9:00-20:00", "nodes": ["n3", "u1"]},
        {"id": "B", "name": "B", "type": "elevator", "hours": "9:00-22:00", "nodes": ["n1", "u2"]}
    ])";
    records.locations = fmt::format(
        R"([{{"id": "l", "name": "Book Shop", "type": "shop", "hours": "9:00-18:00",
             "nodes": [{{"node": "u2"}}], "nameGenerated": {}}}])",
        each.nameGenerated);
    const auto venue = records.load();
    const guidance::InterfaceTexts texts;
    GuideWorker worker(venue, texts);
    worker.prepare({});
    guidance::Request request;
    request.stops = {venue->nodes->at(2), venue->locations->front()};
    request.at = guidance::LocalTime{2026, 11, 20, each.hour, 0};
    const GuidedPlan plan = worker.answer(request, {});
    EXPECT_EQ(plan.problem ? std::optional(plan.problem->kind) : std::nullopt, each.problem);
    EXPECT_EQ(plan.routes.empty() ? "" : plan.routes.front().warning, each.warning);
    request.stops[1] = nearestChoices(*venue, nullptr, {}, texts).at(0).stop;
    const GuidedPlan nearest = worker.answer(request, {});
    EXPECT_EQ(nearest.routes.empty() ? "" : nearest.routes.front().to()->id, each.nearestElevator);
    EXPECT_EQ(nearest.problem.has_value(), each.problem.has_value()) << each.hour;
  }
}

TEST(RouteTitles, TellRoutesOfEqualLengthApart) {
  const auto venue = test::TwoFloorVenue().load();
  const auto guide = guidance::Guide::make(*venue);
  const guidance::InterfaceTexts texts;
  const auto& places = *venue->locations;
  const auto routeWith = [&](std::string summary, const std::shared_ptr<Vortex>& connector,
                             const std::shared_ptr<Location>& passed = nullptr) {
    GuidedRoute route;
    route.summary = std::move(summary);
    guidance::Leg leg;
    leg.connector = connector;
    route.itinerary.legs = {leg};
    guidance::Step step;
    if (passed) step.passed = {{passed, nullptr, guidance::Side::left}};
    route.steps = {step};
    return route;
  };
  const auto& lift = venue->vortices->at(0);
  const auto& stairs = venue->vortices->at(1);
  const struct {
    std::vector<GuidedRoute> routes;
    std::vector<std::string> titles;
  } cases[] = {
      {{routeWith("1 m", lift), routeWith("2 m", lift)}, {"1 m", "2 m"}},
      {{routeWith("1 m", lift), routeWith("1 m", stairs), routeWith("2 m", lift)},
       {"1 m · Elevator", "1 m · Stairs", "2 m"}},
      {{routeWith("1 m", lift, places[0]), routeWith("1 m", lift, places[1])},
       {"1 m · via Bakery", "1 m · via Book Shop"}},
      {{routeWith("1 m", lift), routeWith("1 m", lift)}, {"1 m · 1", "1 m · 2"}},
  };
  for (const auto& [routes, titles] : cases) EXPECT_EQ(routeTitles(routes, *guide, texts), titles);
}

}  // namespace
}  // namespace orivanta::viewer
