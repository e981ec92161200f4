// The simulated walk along a route, and what closures change about it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Source/Map.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Apps/TwoVisitsPackage.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::viewer {

namespace {

using testing::HasSubstr;

// Returns the identifiers of the connectors on the current route.
std::vector<std::string> ridesOf(const VenueView& view) {
  std::vector<std::string> rides;
  for (const guidance::Leg& leg : view.session().route()->itinerary.legs)
    if (leg.connector) rides.push_back(leg.connector->id.value());
  return rides;
}

// The package of `writeTwoVisitsPackage`, which tests change before they call `open`.
class WalkTest : public testing::Test {
 protected:
  WalkTest() { test::writeTwoVisitsPackage(folder, ""); }

  // Adds an escalator beside the stairs, and another way down that takes much longer.
  //
  //   U  u1 ------- u2 -------- u3
  //   G             g3 -- g4 -- g5
  void addWays(const std::string& firstRide = "elevator", int firstLanding = 100) {
    folder.write("visits/node.json", fmt::format(R"([
        {{"id": "g1", "map": "g", "x": 0, "y": 0, "paths": [{{"node": "g2"}}]}},
        {{"id": "g2", "map": "g", "x": 100, "y": 0}},
        {{"id": "g7", "map": "g", "x": 120, "y": 9, "paths": [{{"node": "g8"}}]}},
        {{"id": "g8", "map": "g", "x": 180, "y": 9}},
        {{"id": "u1", "map": "u", "x": {}, "y": 0, "paths": [{{"node": "u2"}}]}},
        {{"id": "u2", "map": "u", "x": 400, "y": 0, "paths": [{{"node": "u3"}}]}},
        {{"id": "u3", "map": "u", "x": 400, "y": 100}},
        {{"id": "g3", "map": "g", "x": 400, "y": 0, "paths": [{{"node": "g4"}}]}},
        {{"id": "g4", "map": "g", "x": 500, "y": 0}},
        {{"id": "g5", "map": "g", "x": 400, "y": 100, "paths": [{{"node": "g4"}}]}}])",
                                                 firstLanding));
    folder.write("visits/vortex.json", fmt::format(R"([
        {{"id": "a", "name": "Lift", "type": "{}", "nodes": ["g2", "u1"]}},
        {{"id": "b", "name": "Stairs", "type": "stairs", "nodes": ["u2", "g3"]}},
        {{"id": "c", "name": "Escalator", "type": "escalator", "nodes": ["u2", "g3"]}},
        {{"id": "d", "name": "Back lift", "type": "elevator", "nodes": ["u3", "g5"]}}])",
                                                   firstRide));
  }

  // Shows the venue and plans a route from the bakery to the museum, whose walk starts by itself.
  VenueView& open(const std::string& language = "en") {
    server::ServerOptions options;
    options.folders = {folder.path()};
    server = std::make_unique<server::VenueServer>(options);
    stage = std::make_unique<test::ViewerStage>(server->root(), "visits", graphics::Size{1280, 800},
                                                language, true);
    VenueView& view = stage->untilShown();
    stage->until([&] {
      const auto& floors = *view.venue()->maps;
      return floors.back()->mapObject != nullptr || !floors.back()->obj;
    });
    return view;
  }

  void walkUntil(const std::function<bool()>& happened) {
    while (!happened()) stage->viewer.advance(stage->time += 0.5);
  }

  void close(VenueView& view, std::vector<std::string> closed) {
    view.setClosures(guidance::Closures(std::move(closed)));
    stage->until([&] { return !view.session().isPlanning(); });
  }

  test::TemporaryFolder folder;
  test::TemporaryFolder caches;
  test::EnvironmentVariable home{"XDG_CACHE_HOME", caches.path().string()};
  test::EnvironmentVariable noShaderCache{"MESA_SHADER_CACHE_DISABLE", "true"};
  std::unique_ptr<server::VenueServer> server;
  std::unique_ptr<test::ViewerStage> stage;
};

}  // namespace

TEST_F(WalkTest, FollowsTheRoute) {
  VenueView& view = open();
  stage->type("w");
  EXPECT_FALSE(view.walker()) << "there is no route";
  stage->untilPlanned("bakery", "museum");
  ASSERT_TRUE(view.walker()) << "starts by itself";
  const double before = view.walker()->position().x;
  stage->type("w");
  for (const double seconds : {0.5, 3600.0}) {  // the first frames in and after the pause
    stage->viewer.advance(stage->time += seconds);
    EXPECT_EQ(view.walker()->position().x, before);
    if (seconds < 1) stage->type("w");
  }
  std::vector<std::string> floors;
  std::vector<std::size_t> steps;
  bool looksBack = false;
  while (!view.walker()->isDone()) {
    EXPECT_TRUE(view.isMoving());
    stage->viewer.advance(stage->time += 0.5);
    if (view.walker()->floor() == view.venue()->maps->back() && !std::exchange(looksBack, true)) {
      view.showFloor(view.venue()->maps->front());
      stage->viewer.advance(stage->time += 0.5);
      EXPECT_NE(view.mapView().currentMap(), view.walker()->floor()) << "until the next floor";
      view.showFloor(view.walker()->floor());
    }
    EXPECT_EQ(view.mapView().currentMap(), view.walker()->floor());
    const auto shown = view.mapView().findPositionCameraViewport(view.walker()->scenePosition());
    EXPECT_NEAR(shown.x, 800, 100) << "in the middle, beside the panel";
    if (const auto& floor = view.walker()->floor()->shortName;
        floors.empty() || floors.back() != floor)
      floors.push_back(floor);
    if (const auto step = view.panels().route->steps().current().value();
        steps.empty() || steps.back() != step)
      steps.push_back(step);
  }
  EXPECT_EQ(floors, (std::vector<std::string>{"G", "U", "G"}));
  EXPECT_EQ(steps, (std::vector<std::size_t>{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(view.panels().route->remark(), "You are there");
  view.setHidden(true);  // the arrows of the route move
  EXPECT_FALSE(view.isMoving());
  view.setHidden(false);
  stage->viewer.keyPressed({Key::escape});
  EXPECT_TRUE(!view.walker() && view.session().route());
}

TEST_F(WalkTest, GoesAroundWhatIsClosedMeanwhileAndLeavesTheMapAlone) {
  addWays();
  for (const bool hasCard : {false, true}) {
    VenueView& view = open();
    stage->untilPlanned("bakery", "museum");
    walkUntil([&] { return view.walker()->floor() == view.venue()->maps->back(); });
    if (!hasCard) stage->type("w");
    view.showFloor(view.venue()->maps->front());
    if (hasCard) view.select(stage->place("bakery"));
    stage->settle();
    const double position = view.walker()->position().x;
    const CameraPose pose = view.camera().pose();
    for (const std::string closed : {"a", "b"}) {
      folder.write("visits/closure.json", R"([{"id": ")" + closed + R"("}])");
      ASSERT_LE(stage->viewer.nextFrameTime(), stage->time + 60);
      if (!hasCard) stage->viewer.advance(stage->time += 60);  // asks again
      if (hasCard) view.setClosures(guidance::Closures({closed}));
      stage->until([&] { return view.session().closures().contains(closed); });
      stage->until([&] { return !view.session().isPlanning(); });
      EXPECT_EQ(ridesOf(view), closed == "a" ? (std::vector<std::string>{"a", "b"})
                                             : std::vector<std::string>{"c"});
      EXPECT_EQ(stage->viewer.note(),
                closed == "a" ? "" : "Closed: Stairs. This is the new route.");
      ASSERT_TRUE(view.walker() && view.walker()->isPaused() != hasCard);
      EXPECT_NEAR(view.walker()->position().x, position, hasCard ? 40 : 1);
      EXPECT_EQ(view.mapView().currentMap(), view.venue()->maps->front());
      EXPECT_EQ(view.camera().pose(), pose);
    }
    // The panel, another walk and another plan begin at the position.
    EXPECT_EQ(view.session().names().from, "Your position");
    if (!hasCard) stage->type("w");
    walkUntil([&] { return view.walker()->isDone(); });
    stage->type("w");
    EXPECT_NEAR(view.walker()->position().x, position, 40);
    view.panels().route->profileChosen(3);
    stage->until([&] { return view.session().route() != nullptr; });
    EXPECT_EQ(ridesOf(view), std::vector<std::string>{"d"});
    view.panels().route->stops().swapped();
    stage->until([&] { return !view.session().isPlanning(); });
    EXPECT_EQ(view.session().names().to, "Your position");
    std::filesystem::remove(folder.path() / "visits/closure.json");
  }
}

TEST_F(WalkTest, StaysOnTheChosenRouteUnlessTheRestIsClosed) {
  addWays("escalator", 200);
  VenueView& view = open();
  stage->untilPlanned("bakery", "museum");
  std::size_t back = 0;
  for (const GuidedRoute& route : view.session().plan().routes)
    if (route.itinerary.legs[3].connector->id != "d") ++back;
  ASSERT_LT(back, view.session().plan().routes.size());
  view.panels().route->routeChosen(back);
  stage->type("w");
  walkUntil([&] { return view.walker()->position().x > 140; });
  EXPECT_EQ(view.walker()->floor()->id, "g") << "on the escalator, beside a corridor";
  close(view, {"bakery"});
  EXPECT_EQ(ridesOf(view), (std::vector<std::string>{"a", "d"}));
  EXPECT_GT(view.session().plan().routes.size(), 1U);
  walkUntil([&] { return view.walker()->position().x > 300; });
  close(view, {"bakery", "b", "c"});
  EXPECT_EQ(ridesOf(view), (std::vector<std::string>{"a", "d"}));
  EXPECT_EQ(view.session().plan().routes.size(), 1U) << "the other routes are closed";
  EXPECT_EQ(stage->viewer.note(), "");
  close(view, {"d"});
  EXPECT_EQ(ridesOf(view), std::vector<std::string>{"b"});
  EXPECT_EQ(stage->viewer.note(), "Closed: Back lift. This is the new route.");

  view.panels().route->stops().closed();
  close(view, {});
  stage->untilPlanned("bakery", "museum");
  walkUntil([&] { return view.walker()->position().x > 140; });
  close(view, {"b"});
  EXPECT_EQ(ridesOf(view), std::vector<std::string>{"c"}) << "from the end of the escalator";
}

TEST_F(WalkTest, AStoppedWalkDoesNotChangeTheStart) {
  addWays();
  VenueView& view = open();
  stage->untilPlanned("bakery", "museum");
  walkUntil([&] { return view.walker()->position().x > 150; });
  view.setClosures(guidance::Closures({"b"}));
  stage->viewer.keyPressed({Key::escape});
  ASSERT_FALSE(view.walker());
  stage->until([&] { return !view.session().isPlanning(); });
  EXPECT_EQ(ridesOf(view), (std::vector<std::string>{"a", "c"}));
  EXPECT_EQ(view.session().names().from, "Bakery");
}

// A venue without a scale, whose upper floor has no model and whose museum is closed.
TEST_F(WalkTest, ShowsWhatItKnows) {
  folder.write("visits/venue.json", R"({"id": "v", "slug": "visits", "name": "Visits"})");
  folder.write("visits/map.json",
               R"([{"id": "g", "name": "Ground", "elevation": 0, "scene": {"obj": "floor.obj"}},
                   {"id": "u", "name": "Upper", "elevation": 10}])");
  folder.write("visits/category.json", R"([{"id": "food", "name": "Food"}])");
  folder.write("visits/location.json",
               R"([{"id": "bakery", "name": "Shop 184", "type": "shop", "nodes": [{"node": "g1"}],
                    "nameGenerated": true, "categories": ["food"]},
                   {"id": "museum", "name": "Museum", "type": "shop", "nodes": [{"node": "g4"}],
                    "hours": "13:00-18:00"}])");
  for (const bool isJapanese : {false, true}) {
    VenueView& view = open(isJapanese ? "ja" : "en");
    stage->untilPlanned("bakery", "museum");
    ASSERT_TRUE(view.walker());
    EXPECT_EQ(view.session().names().from, "Food") << "no sign shows the name";
    EXPECT_THAT(view.panels().route->warning(),
                HasSubstr(isJapanese ? "Museum" : "Museum will be closed when you arrive."));
    walkUntil([&] { return view.walker()->floor() == view.venue()->maps->back(); });
    EXPECT_EQ(stage->viewer.note(),
              isJapanese ? "Upperには3Dモデルがありません。" : "Upper has no 3D model.");
    EXPECT_EQ(stage->viewer.message(), nullptr);
    EXPECT_EQ(view.mapView().currentMap()->id, "g");
    EXPECT_EQ(view.panels().route->remark(), "");
    view.panels().floors->chosen(view.venue()->maps->back());
    EXPECT_TRUE(stage->viewer.message()) << "the user has asked for the floor";
  }
}

}  // namespace orivanta::viewer
