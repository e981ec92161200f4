#include "Source/UI/Display/MapCamera.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Fingers.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta {

namespace {

class MapCameraTest : public testing::Test {
 protected:
  test::DiagnosticLines quiet;
  test::ShownVenue shown;
  MapCamera& control = shown.mapView->camera();
  test::Fingers fingers{shown.mapView};
};

}  // namespace

TEST_F(MapCameraTest, SeesTheGroundWhereTheMapViewShowsIt) {
  for (const CameraPose& pose :
       {CameraPose{500, 500, 900, 0, 0}, {300, 700, 400, 0.8, 1}, {100, 100, 1500, 1, -2}}) {
    control.setPose(pose);
    const auto expected = shownAt(control.pose(), control.lens(), {450, 520});
    ASSERT_TRUE(expected);
    const auto found = shown.mapView->findPositionCameraViewport({450, 520, 0});
    EXPECT_NEAR(found.x, expected->x, 0.1);
    EXPECT_NEAR(found.y, expected->y, 0.1);
  }
}

TEST_F(MapCameraTest, GesturesGoOnFromWhereThePointerHasBroughtTheCamera) {
  control.setPose({500, 500, 900, 0.5, 0.4});
  fingers.down(1, {300, 400}, 0);
  fingers.down(2, {500, 400}, 0);
  fingers.move({{1, {200, 400}}, {2, {600, 400}}}, 0.1);  // the pinch begins
  fingers.move({{1, {190, 400}}, {2, {610, 400}}}, 0.2);
  const CameraPose pinched = control.pose();
  EXPECT_NEAR(pinched.distance, 900 * 420 / 400.0 / (420 * 420 / (400.0 * 400)), 60);
  EXPECT_NEAR(pinched.tilt, 0.5, 1e-5);
  EXPECT_NEAR(pinched.turn, 0.4, 0.05);
  fingers.up(1, 0.3);
  fingers.up(2, 0.3);

  control.setPose({500, 500, 900, 0.5, 0.4});
  fingers.down(1, {300, 300}, 1);
  fingers.down(2, {500, 300}, 1);
  fingers.move({{1, {300, 315}}, {2, {500, 315}}}, 1.1);  // the tilt begins
  fingers.move({{1, {300, 323}}, {2, {500, 323}}}, 1.2);
  EXPECT_NEAR(control.pose().tilt, 0.5, 0.1) << "no jump";
  EXPECT_LT(control.pose().tilt, 0.5) << "a downward movement tilts toward the vertical";
}

TEST_F(MapCameraTest, APinchGoesOnWhileSomethingElseSetsTheCamera) {
  control.setPose({500, 500, 900, 0.5, 0.4});
  control.touchBegan();
  fingers.down(1, {300, 400}, 0);
  fingers.down(2, {500, 400}, 0);
  fingers.move({{1, {290, 400}}, {2, {510, 400}}}, 0.1);
  fingers.move({{1, {250, 400}}, {2, {550, 400}}}, 0.2);
  const double pinched = control.pose().distance;
  ASSERT_LT(pinched, 800);
  control.setPose(control.pose());  // as when the floor or the window size changes
  fingers.move({{1, {249, 400}}, {2, {551, 400}}}, 0.3);
  EXPECT_NEAR(control.pose().distance, pinched, 0.02 * pinched);
  fingers.dispatcher().cancelAll(0.4);
  control.touchEnded();
  EXPECT_NEAR(*shown.mapView->cameraDistance / shown.mapView->scaleEnd, control.pose().distance,
              1e-3)
      << "where the next pinch begins";
}

TEST_F(MapCameraTest, BringsBackWhatAFingerDraggedTooFar) {
  fingers.down(1, {400, 400}, 0);
  fingers.move(1, {420, 400}, 0.1);
  fingers.move(1, {9000, 400}, 0.2);
  EXPECT_LT(control.pose().x, -1000);
  control.touchMoved();
  EXPECT_EQ(control.pose().x, 0);
}

TEST_F(MapCameraTest, ATapLeavesTheZoomOfTheNextPinch) {
  control.setPose({200, 200, 900, 0, 0});
  fingers.tap(1, {400, 400}, 0);
  ASSERT_EQ(shown.delegate->calls.back(), "cafe");
  control.touchEnded();
  EXPECT_NEAR(*shown.mapView->cameraDistance / shown.mapView->scaleEnd, 900, 1e-6);
}

TEST_F(MapCameraTest, AShortRouteFillsAFairPartOfTheView) {
  const auto venue = Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
  control.frame({{500, 500, 0}, {508, 500, 0}}, aroundRoute(*venue));
  const auto start = shownAt(control.pose(), control.lens(), {500, 500});
  const auto end = shownAt(control.pose(), control.lens(), {508, 500});
  ASSERT_TRUE(start && end);
  EXPECT_GT(end->x - start->x, 30) << "points of 800";
}

TEST_F(MapCameraTest, ZoomsAboutTheCenterOfWhatTheInsetsLeaveUncovered) {
  control.setInsets({300, 0, 100, 400});
  control.setPose({500, 500, 800, 0, 0});
  const graphics::Size size = control.lens().size;
  const graphics::Point center{(200 + size.width) / 2, (size.height - 400) / 2};
  const auto ground = groundUnder(control.pose(), control.lens(), center);
  ASSERT_TRUE(ground);
  control.zoomBy(1.5);
  const auto found = shownAt(control.pose(), control.lens(), *ground);
  ASSERT_TRUE(found);
  EXPECT_NEAR(found->x, center.x, 0.1);
  EXPECT_NEAR(found->y, center.y, 0.1);
}

TEST_F(MapCameraTest, GlidesBeginWithTheirFirstFrameAddUpAndEnd) {
  control.setPose({500, 500, 800, 0, 0});
  control.advance(1);
  control.zoomBy(1.5, {400, 400}, CameraMotion::glide);  // some time after the last input
  control.advance(10);
  EXPECT_NEAR(control.pose().distance, 800, 1e-3);
  EXPECT_TRUE(control.isGliding());
  for (const double time : {10.02, 10.04, 10.06, 10.08}) {  // one step per frame
    const double before = control.pose().distance;
    control.zoomBy(1.01, {400, 400}, CameraMotion::glide);
    control.advance(time);
    EXPECT_LT(control.pose().distance, before);
  }
  control.zoomBy(1.5 / std::pow(1.01, 4), {400, 400}, CameraMotion::glide);
  control.advance(11);
  EXPECT_NEAR(control.pose().distance, 800 / 2.25, 1e-3);
  EXPECT_FALSE(control.isGliding());
}

TEST_F(MapCameraTest, MovesByStepsAndKeepsToItsLimitsUnlessToldOtherwise) {
  control.setPose({500, 500, 800, 0.3, 1});
  control.tiltTo(9);
  EXPECT_LT(control.pose().tilt, 1.0472);
  control.tiltBy(-0.5);
  control.rotateBy(0.5);
  EXPECT_NEAR(control.pose().turn, 1.5, 1e-6);
  control.resetNorth();
  EXPECT_EQ(control.pose().turn, 0);
  const double tilt = control.pose().tilt;
  control.panBy(100, 0);
  EXPECT_GT(control.pose().x, 500);
  control.setPose({5000, 500, 1, tilt, 0});
  EXPECT_EQ(control.pose().x, 1000);
  EXPECT_EQ(control.pose().distance, control.limits().nearest);
  control.setLimited(false);
  control.setPose({5000, 500, 1, tilt, 0});
  EXPECT_EQ(control.pose().distance, 1);
  EXPECT_EQ(control.pose().x, 5000);
}

// The far clip plane of a started scene's camera is at 5,000 units.
TEST_F(MapCameraTest, ShowsAFloorOfAnySizeWhole) {
  const auto shape = shown.floor(0)->mapObject->children().front();
  for (const float size : {3000.0F, 30000.0F}) {
    const auto corner = scene::Node::make(shape->geometry());
    corner->setPosition({size - 1000, size - 1000, 0});
    shown.floor(0)->mapObject->addChild(corner);
    control.tiltTo(0.9);
    for (const CameraMotion motion : {CameraMotion::atOnce, CameraMotion::glide}) {
      control.setPose({100, 100, 200, 0.9, 0});
      control.fit(motion);
      for (const double time : {1.0, 2.0}) control.advance(time);
      for (const graphics::Vector3 point :
           {graphics::Vector3{0, 0, 0}, {1000, 0, 0}, {size - 1000, size, 0}, {size, size, 0}}) {
        const graphics::Vector3 at = shown.mapView->sceneView->project(point);
        EXPECT_TRUE(at.x >= 0 && at.x <= 800 && at.y >= 0 && at.y <= 800) << size;
        EXPECT_TRUE(at.z > 0 && at.z < 1) << "between the clip planes: " << size;
      }
    }
  }
}

// Checks the corners of a floor and what is at the lower edge of the view.
TEST_F(MapCameraTest, TheClipPlanesCutOffNothingVisible) {
  constexpr float side = 30000;
  const auto corner = scene::Node::make(shown.floor(0)->mapObject->children().front()->geometry());
  corner->setPosition({side - 1000, side - 1000, 0});
  shown.floor(1)->mapObject->addChild(corner);
  control.setLimited(false);
  const auto expectWhole = [&](const std::string& what) {
    std::vector<graphics::Vector3> points{{side, side, 0}, {0, side, 0}, {side, 0, 0}};
    const graphics::Size size = control.lens().size;
    if (const auto ground =
            groundUnder(control.pose(), control.lens(), {size.width / 2, size.height}))
      points.emplace_back(ground->x, ground->y, 0);
    for (const graphics::Vector3& point : points) {
      const float depth = shown.mapView->sceneView->project(point).z;
      const bool isBehind = depthOf(point, control.pose()) < 0;
      EXPECT_TRUE(isBehind || (depth > 0 && depth < 1))
          << what << " at " << point.x << ' ' << point.y;
    }
  };
  const auto resize = [&](graphics::Size size) {
    shown.mapView->setFrame({{0, 0}, size});
    shown.mapView->layoutIfNeeded();
  };
  control.setPose({500, 200, 400, 1, 0});
  shown.mapView->changeMap(1);
  expectWhole("another floor");
  for (const graphics::Size size : {graphics::Size{800, 800}, {400, 1200}, {1200, 400}})
    for (const double tilt : {0.0, 0.6, 1.04, 1.5})
      for (const double distance : {90.0, 400.0, 9000.0}) {
        resize(size);
        control.setPose({500, 200, distance, tilt, 0.3});
        expectWhole(testing::PrintToString(std::array{size.width, tilt, distance}));
      }
  resize({1200, 400});
  control.setPose({500, 200, 90, 1.5, 0});
  resize({300, 1200});
  expectWhole("another size");
}

// A pinch that moves the camera this far must not clip the floor.
TEST_F(MapCameraTest, GesturesTakeTheClipPlanesAlong) {
  fingers.down(1, {100, 400}, 0);
  fingers.down(2, {700, 400}, 0);
  fingers.move({{1, {110, 400}}, {2, {690, 400}}}, 0.1);
  fingers.move({{1, {360, 400}}, {2, {440, 400}}}, 0.2);
  EXPECT_GT(control.pose().distance, 6000);
  const float depth = shown.mapView->sceneView->project({500, 500, 0}).z;
  EXPECT_TRUE(depth > 0 && depth < 1) << depth;
}

TEST_F(MapCameraTest, TellsWhetherTheViewNeedsAnotherFrame) {
  const auto drawFrame = [&] {
    const graphics::Transaction transaction;
    shown.mapView->frameBegins();
    shown.mapView->layoutIfNeeded();
    shown.mapView->updateMarkerPositions();
    shown.mapView->frameGathered();
  };
  const NodeList path{shown.node(100, 100, 0), shown.node(300, 100, 0)};
  const struct {
    const char* what;
    std::function<void()> change;
    bool goesOn;
  } changes[] = {
      {"a highlight", [&] { shown.mapView->highlightPolygon(shown.polygon("cafe")); }, false},
      {"a pose",
       [&] {
         control.setPose({300, 300, 500, 0, 0});
       },
       false},
      {"a glide", [&] { control.rotateBy(0.5, CameraMotion::glide); }, true},
      {"its end", [&] { control.advance(1), control.advance(2); }, false},
      {"a route", [&] { shown.mapView->drawPath(path); }, true},
      {"no route", [&] { shown.mapView->clearPaths(); }, false},
      {"another floor", [&] { shown.mapView->changeMap(1); }, false},
      {"a lens", [&] { shown.camera().camera()->xFov = 50; }, false},
      {"a light", [&] { shown.mapView->light->light()->color = graphics::colors::white; }, false},
  };
  drawFrame();
  EXPECT_FALSE(shown.mapView->needsFrame());
  for (const auto& [what, change, goesOn] : changes) {
    change();
    EXPECT_TRUE(shown.mapView->needsFrame()) << what;
    drawFrame();
    EXPECT_EQ(shown.mapView->needsFrame(), goesOn) << what;
  }
  shown.mapView->frameBegins();
  view::View::setNeedsFrame();  // as another thread does while the frame is painted
  shown.mapView->frameGathered();
  EXPECT_TRUE(shown.mapView->needsFrame());
}

}  // namespace orivanta
