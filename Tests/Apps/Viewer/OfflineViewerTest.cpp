// Venues that are shown from the store while there is no server.
#include <fmt/format.h>
#include <gmock/gmock.h>

#include "Apps/Viewer/RetryPauses.hpp"
#include "Apps/Viewer/StoredTime.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/VenueStore.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/MisbehavingServer.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::viewer {

namespace {

using test::Answer;
using testing::HasSubstr;

class OfflineViewerTest : public testing::Test {
 protected:
  // A venue with a floor and these places, which are at (0, 0), (10, 0), (20, 0) and so on.
  void serve(const std::vector<std::string>& places) {
    server.on("/1/venue", Answer::json(R"([{"id": "v", "slug": "small", "name": "Small"}])"));
    server.on("/1/map",
              Answer::json(fmt::format(R"([{{"id": "g", "name": "G", "scene": {{"obj": "{}"}}}}])",
                                       server.root("/g.obj"))));
    std::string locations;
    std::string nodes;
    for (std::size_t i = 0; i < places.size(); ++i) {
      const char* const comma = i > 0 ? "," : "";
      locations += fmt::format(R"({}{{"id": "{}", "name": "{}", "type": "shop", "categories": [],
                                      "nodes": [{{"node": "n{}"}}]}})",
                               comma, places[i], places[i], i);
      nodes += fmt::format(R"({}{{"id": "n{}", "x": {}, "y": 0, "map": "g",
                                  "paths": [{{"node": "n{}"}}]}})",
                           comma, i, 10 * i, (i + 1) % places.size());
    }
    server.on("/1/location", Answer::json('[' + locations + ']'));
    server.on("/1/node", Answer::json('[' + nodes + ']'));
    for (const char* empty : {"/1/category", "/1/vortex", "/1/polygon"})
      server.on(empty, Answer::json("[]"));
    server.on("/g.obj",
              Answer::html("o Slab\nv 0 0 0\nv 99 0 0\nv 99 99 0\nv 0 99 0\nf 1 2 3\nf 1 3 4\n"));
  }

  ViewerOptions options(const std::string& endpoint, bool isOffline = false) const {
    ViewerOptions made{test::settingsFor(endpoint), "small", "en",
                       [] { return test::ViewerStage::noon; }};
    made.settings.store = VenueStore::inCachesDirectory();
    made.isOffline = isOffline;
    return made;
  }

  // Shows the venue once with a connection.
  void store() {
    const ViewerOptions online = options(server.root());
    test::ViewerStage(online).untilShown();
    const auto idle = std::make_shared<test::Latch>();
    online.settings.store->whenIdle([idle] { idle->open(); });
    ASSERT_TRUE(idle->wait());
  }

  static std::vector<std::string> routeOf(const VenueView& view) {
    std::vector<std::string> texts;
    for (const auto& node : view.session().route()->path) texts.push_back(*node->id);
    return texts;
  }

  test::TemporaryFolder caches;
  test::EnvironmentVariable home{"XDG_CACHE_HOME", caches.path().string()};
  test::MisbehavingServer server;
};

}  // namespace

TEST_F(OfflineViewerTest, AStartWithoutTheServerShowsTheWholeVenueUntilTheServerIsBack) {
  auto demo = test::serveDemo();
  const std::string root = demo->root();
  const auto port = static_cast<std::uint16_t>(std::stoi(foundation::Url::parse(root)->port()));
  ViewerOptions demoOptions = options(root);
  demoOptions.slug.reset();
  const auto showsAll = [](const test::ViewerStage& stage) {
    const auto& maps = *stage.viewer.venueView()->venue()->maps;
    return std::all_of(maps.begin(), maps.end(), [](const auto& map) { return map->mapObject; });
  };
  std::vector<std::string> route;
  std::size_t places = 0;
  {
    test::ViewerStage stage(demoOptions);
    stage.until([&] { return stage.viewer.venueList().size() > 0; });
    stage.viewer.keyPressed({Key::enter});
    const VenueView& view = stage.untilShown();
    EXPECT_EQ(stage.viewer.connectionNote(), nullptr);
    stage.until([&] { return showsAll(stage); });
    places = view.venue()->locations->size();
    route = routeOf(stage.untilPlanned("tamarisk-row", "dosa-dynamo"));
  }
  demo.reset();
  test::ViewerStage stage(demoOptions);
  VenueView& view = stage.untilShown();
  ASSERT_NE(stage.viewer.connectionNote(), nullptr);
  EXPECT_THAT(stage.viewer.connectionNote()->text(),
              HasSubstr("No connection. Showing the map of"));
  stage.until([&] { return showsAll(stage); });
  EXPECT_EQ(view.venue()->locations->size(), places);
  EXPECT_EQ(routeOf(stage.untilPlanned("tamarisk-row", "dosa-dynamo")), route);
  EXPECT_EQ(stage.viewer.message(), nullptr);
  const CameraPose pose = view.camera().pose();
  demo = test::serveDemo(port);
  stage.tap(stage.viewer.connectionNote()->button());
  stage.until([&] { return stage.viewer.connectionNote() == nullptr; });
  stage.until([&] { return !stage.viewer.note().empty(); });
  EXPECT_THAT(stage.viewer.note(), HasSubstr("connection is back"));
  EXPECT_EQ(stage.viewer.venueView().get(), &view) << "the venue has not changed";
  EXPECT_EQ(view.camera().pose(), pose);
}

TEST_F(OfflineViewerTest, AFreshVenueReplacesTheStoredOneAndKeepsWhatTheUserSees) {
  serve({"cafe", "shop", "desk"});
  store();
  for (const bool slow : {false, true}) {
    SCOPED_TRACE(slow);
    const auto latch = std::make_shared<test::Latch>();
    server.on("/1/venue", slow ? Answer::json("[]").held(latch) : Answer::html("<p>Welcome"));
    test::ViewerStage stage(options(server.root()));
    VenueView& stored = stage.untilShown();
    ASSERT_NE(stage.viewer.connectionNote(), nullptr);
    stage.untilPlanned("cafe", "shop");
    stored.select(stage.place("desk"));
    stage.settle();
    stored.camera().panBy(40, 30);
    const CameraPose pose = stored.camera().pose();
    serve({"cafe", "shop", "desk", slow ? "newer" : "new"});
    latch->open();
    stage.until([&] { return stage.viewer.venueView()->venue()->locations->size() == 4; });
    VenueView& fresh = *stage.viewer.venueView();
    EXPECT_EQ(stage.viewer.connectionNote(), nullptr);
    EXPECT_EQ(fresh.selected(), stage.place("desk"));
    EXPECT_THAT(routeOf(fresh), testing::ElementsAre("n0", "n1"));
    stage.settle();
    EXPECT_EQ(fresh.camera().pose(), pose);
    serve({"cafe", "shop", "desk"});
    store();
  }
}

TEST_F(OfflineViewerTest, OtherAnswersDoNotHideTheStoredVenueButARejectionDoes) {
  serve({"cafe", "shop"});
  store();
  struct Case {
    const char* path;
    Answer answer;
    bool isShown = true;
  };
  for (const Case& each : {Case{"/1/node", Answer::json("{}", 500)},
                           {"/1/map", Answer::html("<p>Welcome")},
                           {"/1/venue", Answer::json("{}", 404)},
                           {"/1/venue", Answer::json("{}", 401), false},
                           {"/1/node", Answer::json("{}", 403), false}}) {
    SCOPED_TRACE(each.path + std::to_string(each.answer.status));
    serve({"cafe", "shop"});
    server.on(each.path, each.answer);
    test::ViewerStage stage(options(server.root()));
    if (each.isShown) {
      stage.untilShown();
      ASSERT_NE(stage.viewer.connectionNote(), nullptr);
      server.on("/1/venue", Answer::json("{}", 401));
    }
    stage.until([&] { return stage.viewer.message() != nullptr; });
    EXPECT_EQ(stage.viewer.message()->title(), "The server rejected the credentials");
    EXPECT_EQ(stage.viewer.venueView(), nullptr);
    EXPECT_EQ(stage.viewer.connectionNote(), nullptr);
  }
}

TEST_F(OfflineViewerTest, WorksWithoutNetworkAccess) {
  serve({"cafe", "shop"});
  store();
  server.forgetRequests();
  ViewerOptions anyVenue = options(server.root(), true);
  anyVenue.slug.reset();
  test::ViewerStage stage(anyVenue);
  stage.untilShown();
  EXPECT_THAT(stage.viewer.connectionNote()->text(), HasSubstr("Offline. Showing the map of"));
  stage.viewer.goBack();
  stage.until([&] { return !stage.viewer.venueList().isHidden(); });
  EXPECT_EQ(stage.viewer.connectionNote()->text(), "Offline. Showing the stored maps.");
  stage.viewer.venueList().chooseMarked();
  stage.untilShown();
  EXPECT_THAT(stage.viewer.connectionNote()->text(), HasSubstr("Offline. Showing the map of"));
  EXPECT_TRUE(server.requests().empty());
  test::ViewerStage other(options(server.rootByName(), true));
  other.until([&] { return other.viewer.message() != nullptr; });
  EXPECT_EQ(other.viewer.message()->title(), "This map is not stored on this device");
}

TEST(StoredTime, NamesTheYearOnlyIfItIsAnotherOne) {
  const guidance::LocalTime now{2026, 11, 22, 8, 0};
  for (const auto& [language, time, text] :
       {std::tuple("en", guidance::LocalTime{2026, 11, 21, 14, 5}, "21 November, 14:05"),
        {"en", {2025, 1, 2, 0, 0}, "2 January 2025, 00:00"},
        {"de", {2026, 3, 1, 9, 30}, "1. März, 09:30"},
        {"ja", {2026, 12, 31, 23, 59}, "12月31日 23:59"}})
    EXPECT_EQ(dateText(time, now, guidance::InterfaceTexts(language)), text);
}

TEST(RetryPauses, GrowToAMinute) {
  RetryPauses pauses(7);
  for (const double pause : {1, 2, 4, 8, 16, 32, 60, 60})
    EXPECT_NEAR(pauses.next(), pause, pause / 5);
  pauses.reset();
  EXPECT_LT(pauses.next(), 1.3);
}

}  // namespace orivanta::viewer
