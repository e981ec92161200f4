#include "Apps/Viewer/GuideWorker.hpp"

#include <gtest/gtest.h>

#include "Apps/Viewer/NearestChoices.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::viewer {
namespace {

class GuideWorkerTest : public ::testing::Test {
 protected:
  static std::string connector(const std::string& id, const std::string& nodes,
                               const std::string& hours) {
    return R"({"id": ")" + id + R"(", "name": ")" + id + R"(", "type": "elevator", "nodes": )" +
           nodes + R"(, "hours": ")" + hours + R"("})";
  }

  GuidedPlan answer(guidance::Stop to, const guidance::LocalTime& at) const {
    GuideWorker worker(venue_, texts_);
    worker.prepare({});
    guidance::Request request;
    request.stops = {(*venue_->nodes)[2], std::move(to)};  // from n3, beside the lift
    request.at = at;
    return worker.answer(request, {});
  }

  const guidance::LocalTime day_{2026, 11, 20, 12, 0};
  const guidance::LocalTime night_{2026, 11, 20, 22, 0};
  const guidance::InterfaceTexts texts_;
  test::TwoFloorVenue records_;
  std::shared_ptr<Venue> venue_;
};

TEST_F(GuideWorkerTest, LeadsToAClosedPlaceButNotOverAClosedConnector) {
  const struct {
    const char *liftHours, *nameGenerated, *warning;
    std::optional<guidance::Problem::Kind> problem;
  } cases[] = {
      {"24/7", "false", "Book Shop will be closed when you arrive.", {}},
      {"24/7", "true", "A stop of the route closes before you can get there.", {}},
      {"09:00-20:00", "false", "", guidance::Problem::Kind::closed},
  };
  for (const auto& each : cases) {
    records_.vortices = "[" + connector("Lift A", R"(["n3", "u1"])", each.liftHours) + "]";
    records_.locations = std::string(R"([{"id": "l2", "name": "Book Shop", "type": "shop",
        "hours": "09:00-18:00", "nodes": [{"node": "u2"}], "nameGenerated": )") +
                         each.nameGenerated + "}]";
    venue_ = records_.load();
    const auto place = venue_->locations->front();
    const GuidedPlan plan = answer(place, night_);
    EXPECT_EQ(plan.problem ? std::optional(plan.problem->kind) : std::nullopt, each.problem);
    EXPECT_EQ(plan.routes.empty() ? "" : plan.routes.front().warning, each.warning);
    EXPECT_EQ(answer(place, day_).routes.at(0).warning, "");
  }
}

TEST_F(GuideWorkerTest, LeadsToTheNearestOpenElevator) {
  records_.vortices = "[" + connector("Lift A", R"(["n3", "u1"])", "09:00-20:00") + "," +
                      connector("Lift B", R"(["n1", "u2"])", "09:00-23:00") + "]";
  venue_ = records_.load();
  const auto choices = nearestChoices(*venue_, *venue_->locations->back(), {}, texts_);
  ASSERT_EQ(choices.size(), 1U);
  const auto& stop = choices[0].stop;
  EXPECT_EQ(answer(stop, day_).routes.at(0).to()->id, "Lift A");
  EXPECT_EQ(answer(stop, night_).routes.at(0).to()->id, "Lift B");
  EXPECT_EQ(answer(stop, night_.plusMinutes(90)).problem->kind, guidance::Problem::Kind::closed);
}

}  // namespace
}  // namespace orivanta::viewer
