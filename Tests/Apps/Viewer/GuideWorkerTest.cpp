#include "Apps/Viewer/GuideWorker.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Content/NearestChoices.hpp"
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

}  // namespace
}  // namespace orivanta::viewer
