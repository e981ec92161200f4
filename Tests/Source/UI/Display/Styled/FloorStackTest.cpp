// Stacked floors and the transition between floors.
#include "Source/UI/Display/Styled/FloorStack.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "Platform/Scene/Node.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/MapCamera.hpp"
#include "Source/UI/Display/MapStyle.hpp"
#include "Source/UI/Display/RouteOverlay.hpp"
#include "Source/Vortex.hpp"
#include "Tests/Platform/Render/Studio.hpp"
#include "Tests/Support/CountedPixels.hpp"
#include "Tests/Support/Fingers.hpp"
#include "Tests/Support/GoldenPicture.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

class FloorStackTest : public testing::Test {
 protected:
  FloorStackTest() {
    shown.floor(1)->elevation = 10;
    shown.floor(0)->shortName = "G";
    shown.floor(1)->shortName = "1";
    view.setFrame({{0, 0}, {320, 200}});
    view.layoutIfNeeded();
    view.setStyle(style);
    view.camera().fit();
  }
  ~FloorStackTest() override { surface_->makeCurrent(); }  // for the renderer's destructor

  std::shared_ptr<const graphics::Image> draw() {
    style->finish();
    renderer_.render(view, {320, 200}, 1, time, surface_->framebuffer());
    return surface_->read();
  }

  void advance(double seconds) { view.camera().advance(time += seconds); }

  std::size_t childrenOfRoot() { return view.sceneView->scene()->rootNode()->children().size(); }

  ShownVenue shown;
  MapView& view = *shown.mapView;
  std::shared_ptr<MapStyle> style = MapStyle::make();
  double time = 0;

 private:
  std::unique_ptr<render::OffscreenSurface> surface_ =
      render::OffscreenSurface::make(320, 200).value();
  render::Renderer renderer_;
};

bool areEqual(const graphics::Image& left, const graphics::Image& right) {
  return std::ranges::equal(left.pixels(), right.pixels());
}

TEST_F(FloorStackTest, LooksAsKeptWithARouteAndLeavesNoTrace) {
  style->setStill(true);
  const auto first = draw();
  const auto pose = view.camera().pose();
  const std::size_t children = childrenOfRoot();
  const NodeList path{shown.node(200, 80, 0), shown.node(500, 500, 0), shown.node(500, 300, 0, 1),
                      shown.node(150, 300, 0, 1)};
  style->setStacked(true);
  {
    RouteOverlay route(shown.mapView, path);
    route.show(1);
    EXPECT_TRUE(looksAsKept(*draw(), "style-stacked"));
  }
  std::weak_ptr<scene::Node> copy = view.sceneView->scene()->rootNode()->children().back();
  style->setStacked(false);
  EXPECT_TRUE(copy.expired());
  EXPECT_EQ(childrenOfRoot(), children);
  EXPECT_EQ(view.camera().pose(), pose);
  EXPECT_TRUE(areEqual(*draw(), *first));
}

TEST_F(FloorStackTest, EndsCleanlyWhenTheSceneOrTheVenueChanges) {
  style->setStill(true);
  const double fieldOfView = view.camera().lens().fieldOfView;
  const std::vector<std::pair<const char*, std::function<void()>>> ends{
      {"another floor", [&] { view.changeMap(view.currentMap() == shown.floor(0) ? 1 : 0); }},
      {"a new scene", [&] { view.startScene(); }},
      {"a load", [&] { view.loadFloors({})->cancel(); }},
      {"no style", [&] { view.setStyle(nullptr); }},
  };
  for (const auto& [what, end] : ends) {
    draw();
    style->setStacked(true);
    EXPECT_TRUE(style->isStacked()) << what;
    end();
    EXPECT_FALSE(style->isStacked()) << what;
    EXPECT_NEAR(view.camera().lens().fieldOfView, fieldOfView, 1e-9) << what;
    EXPECT_NEAR(view.camera().pose().z, 0, 1e-9) << what;
    draw();
  }
}

TEST_F(FloorStackTest, MovesWithoutAJumpAndEndsAtTheSamePose) {
  style->setLabels(false);
  draw();
  const auto flat = view.camera().pose();
  style->setStacked(true);
  EXPECT_EQ(view.camera().pose(), flat);
  EXPECT_TRUE(view.needsFrame());
  // The width of the view at the orbited point, which does not jump when touches end the motion.
  const auto extent = [&] {
    return view.camera().pose().distance * view.camera().lens().slopePerPoint();
  };
  advance(0);
  advance(0.1);
  const double before = extent();
  view.camera().touchBegan();
  EXPECT_NEAR(extent(), before, before * 1e-5);
  view.camera().touchEnded();
  EXPECT_EQ(view.camera().lens().fieldOfView, 20);
  style->setStacked(false);
  advance(0);
  advance(0.4);
  EXPECT_EQ(view.camera().pose(), flat);
  draw();
  draw();
  EXPECT_FALSE(view.needsFrame());
}

TEST_F(FloorStackTest, TapsNamePlaceAndFloorAndNamesLeadToTheirFloor) {
  style->setReducedMotion(true);
  std::vector<MapTap> taps;
  style->tapped = [&](const MapTap& tap) { taps.push_back(tap); };
  style->setStacked(true);
  draw();
  const auto stack = view.sceneView->scene()->rootNode()->children().back();
  const float raised = stack->children().back()->position().z;
  ASSERT_GT(raised, 100);
  Fingers(shown.mapView).tap(1, view.findPositionCameraViewport({150, 150, raised + 2}), 1);
  Fingers(shown.mapView).tap(1, view.findPositionCameraViewport({200, 200, 2}), 1);
  ASSERT_EQ(taps.size(), 2U);
  EXPECT_EQ(taps[0].place, shown.location("loft-1"));
  EXPECT_EQ(taps[0].floor, shown.floor(1));
  EXPECT_EQ(taps[1].place, shown.location("cafe-1"));
  EXPECT_EQ(taps[1].floor, shown.floor(0));
  // The names are in a column at the left of the floors, the upper floor's first.
  for (double y = 0; taps.size() < 3 && y < 200; y += 5)
    for (double x = 5; taps.size() < 3 && x < 60; x += 20) {
      Fingers(shown.mapView).tap(1, {x, y}, 1);
      if (!taps.back().isFloorChange) taps.resize(2);
    }
  ASSERT_EQ(taps.size(), 3U);
  EXPECT_EQ(taps[2].floor, shown.floor(1));
  EXPECT_EQ(view.currentMap(), shown.floor(1));
  EXPECT_FALSE(style->isStacked());
}

TEST_F(FloorStackTest, ShowsTheSelectedPlaceAndThePositionOnTheirFloors) {
  style->setStill(true);
  const MapPalette& colors = style->theme()->colors;
  style->setSelected(shown.location("loft-1"));
  style->setPosition(MapPosition{.floor = shown.floor(1), .x = 600, .y = 200});
  const auto flat = draw();
  EXPECT_EQ(countPixels(*flat, colors.pin) + countPixels(*flat, colors.iconInfo), 0);
  style->setStacked(true);
  const auto stacked = draw();
  EXPECT_GT(countPixels(*stacked, colors.pin), 30);
  EXPECT_GT(countPixels(*stacked, colors.iconInfo), 30);
  style->setSelected(nullptr);
  EXPECT_EQ(countPixels(*draw(), colors.pin), 0);
}

// The upper floor covers the back of the ground floor unless it is faded because no route is there.
TEST_F(FloorStackTest, ShowsTheWaysToOtherFloorsUnlessTheyAreCoveredOrTooNearToEachOther) {
  style->setStill(true);
  const auto way = [&](const char* id, double x, double y, const std::vector<std::size_t>& floors) {
    auto made = Vortex::make(
        *RawData::parse(fmt::format(R"({{"id": "{}", "name": "Lift", "type": "elevator"}})", id)));
    for (const std::size_t floor : floors) made->nodes.push_back(shown.node(x, y, 0, floor));
    return made;
  };
  const auto discs = [&] {
    return countPixels(*draw(), style->theme()->disc(PlaceKind::lift)) / 40;
  };
  style->setStacked(true);
  EXPECT_EQ(discs(), 0);
  shown.venue->vortices = {way("lift", 600, 200, {0, 1}), way("covered", 300, 900, {0}),
                           way("before", 750, 650, {0}), way("outside", 900, 200, {1}),
                           way("near", 480, 200, {0})};
  style->setStacked(false);
  style->setStacked(true);
  EXPECT_EQ(discs(), 3);
  style->setLabels(false);
  EXPECT_EQ(discs(), 0);
  style->setLabels(true);
  style->setClosures(guidance::Closures({"before"}));
  EXPECT_EQ(discs(), 2);
  {
    RouteOverlay route(shown.mapView, {shown.node(200, 80, 0), shown.node(300, 80, 0)});
    route.show(1);
    EXPECT_EQ(discs(), 2);
  }
  view.camera().advance(time);
  {
    RouteOverlay route(shown.mapView, {shown.node(600, 80, 0), shown.node(600, 350, 0)});
    route.show(1);
    EXPECT_EQ(discs(), 1);
  }
  view.camera().advance(time);
  EXPECT_EQ(discs(), 2);
}

TEST_F(FloorStackTest, TheFormerFloorFadesUnlessMotionIsReduced) {
  style->setLabels(false);
  draw();
  view.changeMap(1);
  const auto fading = draw();
  time = 0.1;
  const auto later = draw();
  EXPECT_TRUE(view.needsFrame());
  time = 0.3;
  const auto end = draw();
  EXPECT_FALSE(areEqual(*fading, *later));
  EXPECT_FALSE(areEqual(*later, *end));
  const std::size_t children = childrenOfRoot();
  style->setReducedMotion(true);
  view.changeMap(0);
  EXPECT_EQ(childrenOfRoot(), children);
}

}  // namespace
}  // namespace orivanta::test
