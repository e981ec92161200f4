#include "Source/UI/Display/CameraControl.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/CameraPlacement.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Fingers.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta {

namespace {

class CameraControlTest : public testing::Test {
 protected:
  test::DiagnosticLines quiet;
  test::ShownVenue shown;
  CameraControl control{shown.mapView};
  test::Fingers fingers{shown.mapView};
};

}  // namespace

TEST_F(CameraControlTest, SeesTheGroundWhereTheMapViewShowsIt) {
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

TEST_F(CameraControlTest, GesturesGoOnFromWhereThePointerHasBroughtTheCamera) {
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
  EXPECT_LT(control.pose().tilt, 0.5) << "downwards is towards straight down";
}

TEST_F(CameraControlTest, APinchGoesOnWhileSomethingElseSetsTheCamera) {
  control.setPose({500, 500, 900, 0.5, 0.4});
  control.fingerLanded();
  fingers.down(1, {300, 400}, 0);
  fingers.down(2, {500, 400}, 0);
  fingers.move({{1, {290, 400}}, {2, {510, 400}}}, 0.1);
  fingers.move({{1, {250, 400}}, {2, {550, 400}}}, 0.2);
  const double pinched = control.pose().distance;
  ASSERT_LT(pinched, 800);
  control.setPose(control.pose());  // as for another floor, or another size of the window
  fingers.move({{1, {249, 400}}, {2, {551, 400}}}, 0.3);
  EXPECT_NEAR(control.pose().distance, pinched, 0.02 * pinched);
  fingers.dispatcher().cancelAll(0.4);
  control.settle(true);
  EXPECT_NEAR(*shown.mapView->cameraDistance / shown.mapView->scaleEnd, control.pose().distance,
              1e-3)
      << "where the next pinch begins";
}

TEST_F(CameraControlTest, BringsBackWhatAFingerDraggedTooFar) {
  fingers.down(1, {400, 400}, 0);
  fingers.move(1, {420, 400}, 0.1);
  fingers.move(1, {9000, 400}, 0.2);
  EXPECT_LT(control.pose().x, -1000);
  control.settle(false);
  EXPECT_EQ(control.pose().x, 0);
}

TEST_F(CameraControlTest, ATapLeavesTheZoomOfTheNextPinch) {
  control.setPose({200, 200, 900, 0, 0});
  fingers.tap(1, {400, 400}, 0);
  ASSERT_EQ(shown.delegate->calls.back(), "cafe");
  control.settle(true);
  EXPECT_NEAR(*shown.mapView->cameraDistance / shown.mapView->scaleEnd, 900, 1e-6);
}

TEST_F(CameraControlTest, AShortRouteFillsAFairPartOfTheView) {
  const auto venue = Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
  control.frame({{500, 500, 0}, {508, 500, 0}}, aroundRoute(*venue));
  control.advance(1);
  control.advance(2);
  const auto start = shownAt(control.pose(), control.lens(), {500, 500});
  const auto end = shownAt(control.pose(), control.lens(), {508, 500});
  ASSERT_TRUE(start && end);
  EXPECT_GT(end->x - start->x, 30) << "points of 800";
}

TEST_F(CameraControlTest, GlidesBeginWithTheirFirstFrameAddUpAndEnd) {
  control.setPose({500, 500, 800, 0, 0});
  control.advance(1);
  control.glideZoom(1.5, {400, 400});  // after a quiet while
  control.advance(10);
  EXPECT_NEAR(control.pose().distance, 800, 1e-3);
  EXPECT_TRUE(control.isGliding());
  for (const double time : {10.02, 10.04, 10.06, 10.08}) {  // a step for each frame
    const double before = control.pose().distance;
    control.glideZoom(1.01, {400, 400});
    control.advance(time);
    EXPECT_LT(control.pose().distance, before);
  }
  control.glideZoom(1.5 / std::pow(1.01, 4), {400, 400});
  control.advance(11);
  EXPECT_NEAR(control.pose().distance, 800 / 2.25, 1e-3);
  EXPECT_FALSE(control.isGliding());
}

}  // namespace orivanta
