#include "Apps/Viewer/Viewer.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "Source/Category.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Apps/TwoVisitsPackage.hpp"
#include "Tests/Apps/Viewer/ViewerStage.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::viewer {

namespace {

class ViewerTest : public testing::Test {
 protected:
  test::TemporaryFolder caches;
  test::EnvironmentVariable home{"XDG_CACHE_HOME", caches.path().string()};
  test::EnvironmentVariable noShaderCache{"MESA_SHADER_CACHE_DISABLE", "true"};
  std::unique_ptr<server::VenueServer> server = test::serveDemo();
};

// Returns a point of the shop that no name and no pin covers.
graphics::Point on(VenueView& view, const Location& place) {
  return view.mapView().findPositionCameraViewport(view.mapView().findPosition3D(place));
}

// Whether a visible text of a view contains a word.
bool shows(const view::View& view, const std::string& word) {
  const auto* const label = dynamic_cast<const Label*>(&view);
  if (label != nullptr && label->text().find(word) != std::string::npos) return true;
  const auto children = view.subviews();
  return std::any_of(children.begin(), children.end(),
                     [&](const auto& child) { return shows(*child, word); });
}

// Draws frames until nothing moves.
void untilStill(test::ViewerStage& stage) {
  stage.until([&] {
    stage.picture();
    return !stage.viewer.isMoving() && !stage.viewer.root()->needsFrame();
  });
}

}  // namespace

TEST_F(ViewerTest, TapsSelectPlacesAndClearTheSelection) {
  test::ViewerStage stage(server->root(), "astrolabe-court");
  EXPECT_GT(test::countPixels(*stage.picture(), theme::backdrop), 800'000) << "the veil";
  EXPECT_TRUE(stage.viewer.isMoving()) << "its activity indicator rotates";
  VenueView& view = stage.untilShown();
  const graphics::Color pin = MapTheme::light()->colors.pin;
  EXPECT_EQ(test::countPixels(*stage.picture(), pin), 0);
  const auto kindling = stage.place("kindling");
  stage.tap(on(view, *kindling));
  EXPECT_EQ(view.selected(), kindling);
  EXPECT_FALSE(view.panels().card->isHidden());
  untilStill(stage);
  EXPECT_GT(test::countPixels(*stage.picture(), pin), 200) << "a pin and an outline";
  EXPECT_FALSE(stage.viewer.isMoving() || stage.viewer.root()->needsFrame())
      << "nothing is drawn when nothing moves";
  stage.tap({640, 780});
  EXPECT_EQ(view.selected(), nullptr);
  EXPECT_TRUE(view.panels().card->isHidden());
}

TEST_F(ViewerTest, TheCardFollowsTheTimeAndTheMapTheSizeOfText) {
  guidance::LocalTime now = test::ViewerStage::noon;
  ViewerOptions options{.settings = test::settingsFor(server->root()), .slug = "astrolabe-court"};
  options.languages = "en";
  options.clock = [&] { return now; };
  options.reducesMotion = true;
  test::ViewerStage stage(options);
  VenueView& view = stage.untilShown();
  const CameraPose former = view.camera().pose();
  view.select(stage.place("kindling"));
  EXPECT_NE(view.camera().pose(), former) << "at once";
  EXPECT_FALSE(view.camera().isGliding());
  EXPECT_TRUE(shows(*view.panels().card, "Open until"));
  now.hour = 23;
  stage.viewer.advance(stage.time += 60);
  EXPECT_TRUE(shows(*view.panels().card, "Closed"));
  stage.viewer.setLook({.textScale = 2});
  EXPECT_EQ(view.mapView().style()->theme()->sizes.name, 2 * MapTheme::light()->sizes.name);
  EXPECT_NE(view.mapView().style()->theme()->colors.text, graphics::colors::black);
  stage.viewer.setLook({.hasHighContrast = true});
  EXPECT_EQ(view.mapView().style()->theme()->colors.text, graphics::colors::black);
}

TEST_F(ViewerTest, TheRouteStaysInViewWhenTheWindowChangesUnlessTheMapWasMoved) {
  test::ViewerStage stage(server->root(), "astrolabe-court");
  VenueView& view = stage.untilShown();
  const CameraPose first = view.camera().pose();
  stage.viewer.resize({390, 844}, 1);
  EXPECT_NE(view.camera().pose(), first) << "the first view is framed anew";
  stage.viewer.resize({1280, 800}, 1);
  stage.untilPlanned("kindling", "dosa-dynamo");
  stage.viewer.resize({390, 844}, 1);
  const graphics::Point start =
      view.mapView().findPositionCameraViewport(scenePosition(*view.session().route()->path[0]));
  const Insets covered = view.panels().insets();
  EXPECT_TRUE(start.x > covered.left && start.x < 390 - covered.right && start.y > covered.top &&
              start.y < 844 - covered.bottom)
      << start.x << " " << start.y;
  view.camera().zoomBy(2, {195, 200});
  const CameraPose moved = view.camera().pose();
  stage.viewer.resize({400, 844}, 1);
  EXPECT_NEAR(view.camera().pose().distance, moved.distance, 1e-3 * moved.distance);
}

TEST_F(ViewerTest, SearchesRoutesAndChangesFloors) {
  for (const graphics::Size size : {graphics::Size{1280, 800}, {390, 844}}) {
    test::ViewerStage stage(server->root(), "astrolabe-court", size);
    VenueView& view = stage.untilShown();
    EXPECT_EQ(view.mapView().currentMap()->shortName, "G");
    stage.tap(view.panels().search->field());
    stage.type("dosa dinamo");
    stage.viewer.keyPressed({Key::enter});
    stage.until([&] { return view.selected() == stage.place("dosa-dynamo"); });
    stage.until([&] { return view.mapView().currentMap()->shortName == "2"; });
    stage.settle();

    view.panels().card->toHere();
    EXPECT_FALSE(view.session().route());
    stage.viewer.keyPressed({Key::pageDown});
    stage.viewer.keyPressed({Key::pageDown});
    EXPECT_EQ(view.mapView().currentMap()->shortName, "G");
    const auto hint = view.subviews().at(1);
    EXPECT_TRUE(hint->isHidden());
    view.select(stage.place("dosa-dynamo"));
    stage.viewer.keyPressed({Key::pageDown});
    stage.tap(*hint);
    EXPECT_EQ(view.mapView().currentMap()->shortName, "2") << "where the selected place is";
    EXPECT_TRUE(hint->isHidden());
    view.select(nullptr);
    for (int i = 0; i < 2; ++i) stage.viewer.keyPressed({Key::pageDown});
    view.camera().fit();
    stage.tap(on(view, *stage.place("kindling")));
    stage.until([&] { return view.session().route() != nullptr; });
    stage.settle();
    EXPECT_EQ(view.session().route()->from(), stage.place("kindling"));
    EXPECT_EQ(view.session().route()->floors.size(), 2U);
    stage.viewer.keyPressed({Key::pageUp});
    EXPECT_EQ(view.mapView().currentMap()->shortName, "1");
    untilStill(stage);  // the route is not on this floor
    stage.viewer.keyPressed({Key::pageDown});
    EXPECT_GT(test::countPixels(*stage.picture(), MapTheme::light()->colors.start), 20)
        << "the start";

    view.panels().route->stepChosen(view.session().route()->steps.size() - 1);
    stage.settle();
    EXPECT_EQ(view.mapView().currentMap()->shortName, "2");
    view.mapView().style()->tapped({stage.place("dosa-dynamo"), view.mapView().currentMap()});
    EXPECT_FALSE(view.panels().card->isHidden()) << "also while there is a route";
    stage.viewer.keyPressed({Key::escape});
    EXPECT_TRUE(view.session().route() && !view.panels().route->isHidden());
    stage.viewer.keyPressed({Key::escape});
    EXPECT_FALSE(view.session().route());
    EXPECT_FALSE(view.mapView().currentPath);
  }
}

TEST_F(ViewerTest, RoutesFollowTheProfileTheChoiceAndTheStops) {
  test::ViewerStage stage(server->root(), "astrolabe-court");
  stage.untilShown();
  VenueView& view = stage.untilPlanned("tamarisk-row", "dosa-dynamo");
  RoutePanel& panel = *view.panels().route;
  const auto usesStairs = [&] {
    const auto& legs = view.session().route()->itinerary.legs;
    return std::any_of(legs.begin(), legs.end(), [](const guidance::Leg& leg) {
      return leg.connectorKind == guidance::ConnectorKind::stairs;
    });
  };
  for (const std::size_t profile : {0U, 1U}) {
    stage.tap(*panel.profiles().cell(profile));
    stage.until([&] { return view.session().route() != nullptr; });
    EXPECT_EQ(usesStairs(), profile == 0);
    EXPECT_EQ(panel.summary(), view.session().route()->summary);
    EXPECT_TRUE(panel.remark().starts_with("Arrival 12:0")) << panel.remark();
  }
  ASSERT_GT(panel.routes().size(), 1U);
  const NodeList first = view.session().route()->path;
  stage.tap(*panel.routes().cell(1));
  EXPECT_NE(view.session().route()->path, first);

  view.select(stage.place("kindling"));
  view.panels().card->stopAdded();
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->itinerary.visits[1].location, stage.place("kindling"));
  EXPECT_FALSE(view.session().canAddStop(stage.place("kindling"))) << "it is one already";
  panel.stops().removed(0);
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->path, first);
  panel.stops().swapped();
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->to(), stage.place("tamarisk-row"));

  SearchPanel& search = *view.panels().search;
  panel.stops().chosen(RouteEnd::start);
  stage.tap(*view.panels().mapButtons->subviews().front());
  EXPECT_TRUE(search.isOpen() && search.field().text().empty()) << "the button types nothing";
  stage.viewer.keyPressed({Key::escape});
  search.open();
  search.chosen(stage.place("kindling"), search.end());
  EXPECT_EQ(view.selected(), stage.place("kindling")) << "the start is no longer searched";
  view.select(nullptr);
  for (const RouteEnd end : {RouteEnd::start, RouteEnd::destination}) {
    panel.stops().chosen(end);
    view.mapView().style()->tapped({stage.place("kindling"), view.mapView().currentMap()});
    stage.until([&] { return view.session().route() != nullptr; });
  }
  EXPECT_EQ(panel.summary(), "You are already there");
}

TEST_F(ViewerTest, LeadsToTheNearestPlaceOfACategory) {
  test::ViewerStage stage(server->root(), "astrolabe-court");
  VenueView& view = stage.untilShown();
  stage.tap(view.panels().search->field());
  stage.type("t");  // before there are any results
  stage.until([&] { return view.panels().search->list().marked().has_value(); });
  EXPECT_EQ(view.panels().search->list().inSight().begin()->first, 0U);
  stage.type("oil");
  stage.viewer.keyPressed({Key::enter});
  stage.until([&] { return !view.panels().route->isHidden(); });
  EXPECT_FALSE(view.session().route() || view.session().isPlanning()) << "there is no start yet";
  stage.tap(on(view, *stage.place("kindling")));
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->from(), stage.place("kindling"));
  EXPECT_EQ(view.session().route()->to()->categories.front()->id, "cat-toilets");

  view.select(stage.place("dosa-dynamo"));
  view.panels().card->nearestChosen(0);
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->from(), stage.place("dosa-dynamo"));
  EXPECT_EQ(view.session().route()->to(), stage.place("toilets-l2"));

  view.select(stage.place("dosa-dynamo"));
  view.panels().card->nearestChosen(2);
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->to()->type, "elevator");

  std::vector<std::string> closed;  // one elevator after the other
  while (view.session().route() && closed.size() < 10) {
    closed.push_back(view.session().route()->to()->id.value());
    view.setClosures(guidance::Closures(closed));
    stage.until([&] { return !view.session().isPlanning(); });
  }
  EXPECT_GT(closed.size(), 1U);
  EXPECT_EQ(view.panels().route->summary(), "A stop of the route, or the way there, is closed.");
}

TEST_F(ViewerTest, BrowsesKindsAllPlacesAndRecentPlaces) {
  test::ViewerStage stage(server->root(), "astrolabe-court", {390, 844}, "ar");
  VenueView& view = stage.untilShown();
  view.select(stage.place("kindling"));
  view.select(nullptr);
  SearchPanel& search = *view.panels().search;
  const auto tapTile = [&](const char* key) {
    stage.picture();  // places the tiles
    for (const auto& [index, row] : search.list().inSight())
      if (const auto* tiles = dynamic_cast<const TileRow*>(row.get()))
        for (const auto& tile : tiles->tiles())
          if (tile->title() == stage.viewer.texts().text(key)) return stage.tap(*tile);
    FAIL() << key;
  };
  stage.tap(search.field());
  const std::size_t rows = search.list().size();
  tapTile("interface.browse.all");
  EXPECT_GT(search.list().size(), view.venue()->locations->size());
  stage.viewer.keyPressed({Key::escape});
  EXPECT_EQ(search.list().size(), rows) << "back to the kinds";
  tapTile("interface.kind.food");
  stage.viewer.keyPressed({Key::backspace});
  for (int row = 0; row < 50; ++row) stage.viewer.keyPressed({Key::down});
  stage.viewer.keyPressed({Key::enter});
  EXPECT_EQ(view.selected(), stage.place("kindling")) << "the last row is the recent place";
  EXPECT_FALSE(search.isOpen());
  stage.tap(search.field());
  tapTile("interface.nearest.label.exit");
  stage.until([&] { return view.session().route() != nullptr; });
  EXPECT_EQ(view.session().route()->from(), stage.place("kindling"));
}

TEST_F(ViewerTest, SpeaksTheChosenLanguageInItsDirection) {
  for (const bool isRightToLeft : {false, true}) {
    test::ViewerStage stage(server->root(), "astrolabe-court", {1280, 800},
                            isRightToLeft ? "ar" : "de, en;q=0.5");
    stage.untilShown();
    VenueView& view = stage.untilPlanned("tamarisk-row", "dosa-dynamo");
    const RoutePanel& panel = *view.panels().route;
    stage.picture();  // places the parts of rows
    EXPECT_EQ(panel.frame().minX() > 640, isRightToLeft);
    EXPECT_EQ(view.panels().floors->frame().minX() < 640, isRightToLeft);
    const auto row = panel.steps().list().inSight().at(0);
    const graphics::Rect icon = row->subviews()[3]->frame();
    EXPECT_EQ(icon.minX() > row->bounds().size.width / 2, isRightToLeft);
    EXPECT_TRUE(panel.remark().starts_with(isRightToLeft ? "الوصول 12:0" : "Ankunft 12:0"));
  }
}

TEST_F(ViewerTest, StepsShowTheirPartOfTheRouteAndTheAttributionStays) {
  test::TemporaryFolder folder;
  const std::string credit = "© Testers " + std::string(700, 'x');
  test::writeTwoVisitsPackage(folder, credit);
  server::ServerOptions options;
  options.folders = {folder.path()};
  const server::VenueServer visits(options);
  for (const graphics::Size size : {graphics::Size{1280, 800}, {390, 844}}) {
    test::ViewerStage stage(visits.root(), "visits", size);
    VenueView& view = stage.untilShown();
    AttributionLine& line = *view.panels().attribution;
    EXPECT_EQ(line.text(), credit + " · CC0");
    const double closed = line.frame().size.height;
    stage.tap(line);
    EXPECT_GT(line.frame().size.height, 3 * closed) << "all of it";
    EXPECT_GE(line.frame().minX(), 0);
    stage.viewer.keyPressed({Key::escape});
    EXPECT_EQ(line.frame().size.height, closed);

    stage.untilPlanned("bakery", "museum");
    ASSERT_TRUE(view.session().route());
    EXPECT_NEAR(view.camera().pose().x, 50, 100) << "the first visit";
    const std::pair<const char*, double> expected[] = {{"G", 50},  {"G", 100}, {"U", 250},
                                                       {"U", 400}, {"G", 450}, {"G", 500}};
    ASSERT_EQ(view.session().route()->steps.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
      view.panels().route->stepChosen(i);
      EXPECT_EQ(view.panels().route->steps().current(), i);
      stage.until([&] { return view.mapView().currentMap()->shortName == expected[i].first; });
      stage.settle();
      const auto middle =
          shownAt(view.camera().pose(), view.camera().lens(), {expected[i].second, 0});
      ASSERT_TRUE(middle) << i;
      EXPECT_NEAR(middle->x, size.width / 2, size.width / 4) << i;
      EXPECT_LE(line.frame().maxY(),
                view.panels().route->frame().minY() + (size.width > 700 ? size.height : 0));
    }
    stage.tap(view.panels().search->field());
    EXPECT_FALSE(line.isHidden());
    stage.viewer.keyPressed({Key::escape});
    view.panels().route->profileChosen(1);
    stage.until([&] { return !view.session().isPlanning(); });
    EXPECT_FALSE(view.session().route());
    EXPECT_TRUE(view.panels().route->summary().starts_with("There is no route to Museum without"));
    stage.tap(view.panels().route->offer());
    stage.until([&] { return view.session().route() != nullptr; });
  }
}

TEST_F(ViewerTest, ThePointerDragsTiltsAndZoomsAroundItself) {
  test::ViewerStage stage(server->root(), "astrolabe-court");
  VenueView& view = stage.untilShown();
  MapCamera& camera = view.camera();
  Pointer& pointer = stage.viewer.pointer();
  const auto expectSamePlace = [](const auto& one, const auto& other) {
    ASSERT_TRUE(one && other);
    EXPECT_NEAR(one->x, other->x, 0.5);
    EXPECT_NEAR(one->y, other->y, 0.5);
  };
  const auto under = [&](graphics::Point at) {
    return groundUnder(camera.pose(), camera.lens(), at);
  };
  const graphics::Point shop = on(view, *stage.place("kindling"));
  const auto pointed = under(shop);
  const double distance = camera.pose().distance;
  for (const int clicks : {1, 2}) {
    pointer.press(PointerButton::left, shop, clicks, stage.time);
    pointer.release(PointerButton::left, shop, stage.time);
    for (int frame = 0; frame < 4; ++frame) stage.viewer.advance(stage.time += 0.03);
  }
  EXPECT_EQ(view.selected(), stage.place("kindling"));
  stage.settle();
  expectSamePlace(under(shop), pointed);
  EXPECT_NEAR(camera.pose().distance, distance / 1.8, 1);

  view.select(nullptr);
  stage.viewer.wheel({640, 400}, 1);
  stage.settle();
  const auto held = under({600, 400});
  pointer.press(PointerButton::left, {600, 400}, 1, stage.time);
  for (const graphics::Point at : {graphics::Point{640, 420}, {700, 450}})
    pointer.move(at, stage.time);
  pointer.release(PointerButton::left, {700, 450}, stage.time);
  expectSamePlace(under({700, 450}), held);
  EXPECT_EQ(view.selected(), nullptr) << "a drag is not a tap";

  const CameraPose start = camera.pose();
  pointer.press(PointerButton::right, {600, 400}, 1, stage.time);
  pointer.move({650, 300}, stage.time);
  pointer.release(PointerButton::right, {650, 300}, stage.time);
  EXPECT_GT(camera.pose().tilt, start.tilt);
  EXPECT_NE(camera.pose().turn, start.turn);
}

TEST_F(ViewerTest, SaysWhatWentWrongAndTriesAgain) {
  const std::string root = server->root();
  const auto port = static_cast<std::uint16_t>(std::stoi(root.substr(root.rfind(':') + 1)));
  server.reset();
  test::ViewerStage stage(root, std::nullopt);
  stage.until([&] { return stage.viewer.message() != nullptr; });
  EXPECT_FALSE(stage.viewer.isMoving());
  server = test::serveDemo(port);
  stage.until([&] { return !stage.viewer.venueList().isHidden(); });  // without a key
  EXPECT_EQ(stage.viewer.message(), nullptr);
  stage.viewer.keyPressed({Key::enter});
  stage.untilShown();
}

TEST_F(ViewerTest, GoesBackToTheListAndReleasesTheVenue) {
  namespace fs = std::filesystem;
  test::TemporaryFolder folder;
  server::ServerOptions options;
  for (const std::string slug : {"first", "second"}) {
    fs::copy(*demo::demoVenueFolder(), folder.path() / slug, fs::copy_options::recursive);
    folder.write(slug + "/venue.json", R"({"id": ")" + slug + R"(", "slug": ")" + slug +
                                           R"(", "name": ")" + slug + "\"}");
    options.folders.push_back(folder.path() / slug);
  }
  const server::VenueServer two(options);
  test::ViewerStage stage(two.root(), std::nullopt);
  Viewer& viewer = stage.viewer;
  for (const bool whenShown : {false, true}) {
    stage.until([&] { return !viewer.venueList().isHidden(); });
    EXPECT_FALSE(viewer.canGoBack());
    for (int row = 0; whenShown && row < 2; ++row) viewer.keyPressed({Key::down});
    viewer.keyPressed({Key::enter});
    stage.until([&] { return viewer.venueView() != nullptr; });
    if (whenShown) {
      stage.untilShown().select(stage.place("kindling"));
      viewer.keyPressed({Key::escape});
      ASSERT_TRUE(viewer.venueView()) << "first what is open";
    }
    const std::weak_ptr<VenueView> view = viewer.venueView();
    const std::weak_ptr<Venue> venue = viewer.venueView()->venue();
    EXPECT_EQ(venue.lock()->slug, whenShown ? "second" : "first");
    if (whenShown)
      stage.tap(*viewer.venueView()->panels().back);
    else
      viewer.keyPressed({Key::escape});
    EXPECT_FALSE(viewer.venueList().isHidden() || viewer.isMoving());
    EXPECT_EQ(viewer.title(), "Orivanta");
    stage.until([&] { return venue.expired() && view.expired(); });
  }
  for (const char* slug : {"first", "second"}) {
    test::ViewerStage asked(two.root(), slug);
    asked.untilShown();
    EXPECT_TRUE(asked.viewer.canGoBack()) << "there is another";
  }
  test::ViewerStage only(server->root(), "astrolabe-court");
  only.untilShown();
  only.viewer.keyPressed({Key::back});
  EXPECT_TRUE(only.viewer.venueView()) << "there is none to choose from";
}

}  // namespace orivanta::viewer
