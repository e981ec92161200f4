// The messages if a server has only a part of a venue, or none.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Source/Map.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::viewer {

namespace {

using test::Answer;
using testing::HasSubstr;

// A venue "small" with a ground floor and an upper floor, and one place on each.
class ViewerFailuresTest : public testing::Test {
 protected:
  ViewerFailuresTest() { serveAll(); }

  void serveAll() {
    server.on("/1/venue", Answer::json(R"([{"id": "v", "slug": "small", "name": "Small"}])"));
    constexpr const char* floor = R"({{"id": "{0}", "name": "{1}", "elevation": {2},
                                  "scene": {{"obj": "{3}.obj", "mtl": "{3}.mtl"}}}})";
    server.on("/1/map",
              Answer::json('[' + fmt::format(floor, "g", "Ground", 0, server.root("/g")) + ',' +
                           fmt::format(floor, "u", "Upper", 5, server.root("/u")) + ']'));
    server.on("/1/location", Answer::json(R"([
        {"id": "cafe", "name": "Cafe", "type": "shop", "categories": [], "nodes": [{"node": "a"}]},
        {"id": "loft", "name": "Loft", "type": "shop", "categories": [], "nodes": [{"node": "b"}]}])"));
    server.on("/1/node", Answer::json(R"([{"id": "a", "x": 10, "y": 10, "map": "g"},
                                          {"id": "b", "x": 30, "y": 10, "map": "u"}])"));
    for (const char* empty : {"/1/category", "/1/vortex", "/1/polygon"})
      server.on(empty, Answer::json("[]"));
    for (const char* path : {"/g.obj", "/u.obj"}) server.on(path, model);
    for (const char* path : {"/g.mtl", "/u.mtl"}) server.on(path, Answer::html("newmtl Slab\n"));
  }

  const Answer model =
      Answer::html("o Slab\nv 0 0 0\nv 99 0 0\nv 99 99 0\nv 0 99 0\nf 1 2 3\nf 1 3 4\n");
  const Answer nothing = Answer::json("{}", 500);
  test::TemporaryFolder caches;
  test::EnvironmentVariable home{"XDG_CACHE_HOME", caches.path().string()};
  test::MisbehavingServer server;
};

}  // namespace

TEST_F(ViewerFailuresTest, NeedsWhatRoutesAreMadeOfAndTellsWhatElseIsMissing) {
  struct Case {
    const char* path;
    const char* title;  // null if the map is shown nonetheless, with a note
    const char* note = "";
    Answer answer = Answer::json("{}", 500);
  };
  const Answer none = Answer::json("[]");
  const Answer other = Answer::json(R"([{"id": "o", "slug": "other", "name": "Other"}])");
  const Answer attic = Answer::json(R"([{"id": "m", "name": "Attic"}])");
  const Answer unfinished = Answer::json(
      fmt::format(R"([{{"id": "m", "scene": {{"obj": "{}"}}}}])", server.root("/none.obj")));
  for (const Case& each :
       {Case{"/g.mtl", nullptr, "Ground is shown without"},
        {"/1/vortex", "The venue cannot be loaded"},
        {"/1/venue", "The list of venues cannot be loaded"},
        {"/1/venue", "The server rejected the credentials", "", Answer::json("{}", 401)},
        {"/1/venue", "No venue \u201Csmall\u201D", "", other},
        {"/1/map", "This venue is empty", "", none},
        {"/1/map", "No floors to show", "", attic},
        {"/1/map", "The floors cannot be loaded", "", unfinished},
        {"/1/category", nullptr, "categories"}}) {
    SCOPED_TRACE(each.path + std::string(" ") + each.note + (each.title ? each.title : ""));
    serveAll();
    server.on(each.path, each.answer);
    test::ViewerStage stage(server.root(), "small");
    if (each.title == nullptr) {
      stage.until([&] { return !stage.viewer.note().empty(); });
      EXPECT_THAT(stage.viewer.note(), HasSubstr(each.note));
      stage.untilShown();
      EXPECT_EQ(stage.viewer.note(), "") << "the note disappears by itself";
      continue;
    }
    stage.until([&] { return stage.viewer.message() != nullptr; });
    EXPECT_EQ(stage.viewer.message()->title(), each.title);
    if (each.answer.status != 500) continue;  // only these are tried again
    serveAll();
    stage.viewer.keyPressed({Key::enter});
    stage.untilShown();
  }
}

TEST_F(ViewerFailuresTest, TellsThatAnAwaitedFloorFailsAndLoadsThatOneAgain) {
  const auto latch = std::make_shared<test::Latch>();
  server.on("/u.obj", {nothing.held(latch), nothing, model});
  test::ViewerStage stage(server.root(), "small");
  Viewer& viewer = stage.viewer;
  VenueView& view = stage.untilShown();
  view.select(stage.place("cafe"));
  stage.settle();
  const CameraPose pose = view.camera().pose();
  const auto ground = view.mapView().currentMap();
  const auto upper = view.venue()->maps->back();
  view.showFloor(upper);
  EXPECT_TRUE(viewer.isMoving()) << "the cell shows an activity indicator";
  EXPECT_EQ(viewer.message(), nullptr);
  latch->open();
  for (int times = 0; times < 2; ++times) {
    stage.until([&] { return viewer.message() != nullptr; });
    EXPECT_EQ(viewer.message()->title(), "Upper cannot be loaded");
    EXPECT_EQ(view.mapView().currentMap(), ground);
    EXPECT_EQ(view.camera().pose(), pose) << "the camera does not move";
    viewer.keyPressed({Key::enter});
    EXPECT_TRUE(viewer.showsMap());
  }
  stage.until([&] { return view.mapView().currentMap() == upper; });
  stage.untilShown();
  EXPECT_EQ(viewer.message(), nullptr);
  EXPECT_EQ(view.selected(), stage.place("cafe"));
}

TEST_F(ViewerFailuresTest, WhatIsClosedIsMarkedAndAvoided) {
  const Answer closed = Answer::json(R"([{"id": "cafe"}, 5, {}])");
  const auto latch = std::make_shared<test::Latch>();
  server.on("/1/closure", {nothing, closed.held(latch), closed});
  test::ViewerStage stage(server.root(), "small");
  VenueView& view = stage.untilShown();
  const auto cafe = stage.place("cafe");
  for (const std::size_t expected : {2U, 2U, 2U}) {  // an answer that is late is waited for
    stage.until([&] { return stage.viewer.nextFrameTime() < stage.time + 61; });
    stage.viewer.advance(stage.time += 61);
    ASSERT_TRUE(server.waitForRequests("/1/closure", expected));
    stage.until([&] { return foundation::mainQueue::wait(0.05) || true; });
    EXPECT_EQ(server.requests("/1/closure").size(), expected);
  }
  latch->open();
  stage.until([&] { return view.isClosed(*cafe); });
  const graphics::Color gray = MapTheme::light()->colors.iconOutOfOrder;
  stage.until([&] { return test::countPixels(*stage.picture(), gray) > 20; });
  for (const auto& place : {cafe, stage.place("loft")}) {
    view.select(place);
    EXPECT_EQ(view.panels().card->content().isClosed, place == cafe);
  }
  stage.untilPlanned("loft", "cafe");
  EXPECT_THAT(view.panels().route->summary(), HasSubstr("is closed"));
  server.on("/1/closure", Answer::json("{}", 404));
  view.panels().route->profileChosen(1);  // asks again
  stage.until([&] { return !view.isClosed(*cafe) && !view.session().isPlanning(); });
  EXPECT_EQ(view.panels().route->summary(), "There is no route to Cafe.");
}

TEST(VenueSource, UsesTheTransportAndTheMemoryLimitOfItsSettings) {
  class Memory : public network::UrlTransport {
   public:
    void start(network::UrlRequest request, Completion completed) override {
      completed(
          network::UrlAnswer{{request.url, 200, {}}, R"([{"id": "v", "slug": "v", "name": "V"}])"});
    }
  };
  for (const std::size_t limit : {defaultLoadBytes, std::size_t{10}}) {
    ApiSettings settings = test::settingsFor("http://memory.invalid/");
    settings.transport = std::make_shared<Memory>();
    settings.loadBytes = limit;
    VenueSource source(settings, "en", guidance::InterfaceTexts());
    std::string ending;
    source.fetchVenues({{}, [&](const Problem& problem) { ending = problem.detail; }},
                       [&](const VenueSource::Venues& venues) { ending = *venues.front()->name; });
    while (ending.empty()) {
      ASSERT_TRUE(foundation::mainQueue::wait(60));
      foundation::mainQueue::drain();
    }
    EXPECT_THAT(ending, HasSubstr(limit == 10 ? "memory" : "V"));
  }
}

}  // namespace orivanta::viewer
