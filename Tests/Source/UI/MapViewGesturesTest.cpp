#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "Platform/Scene/Node.hpp"
#include "Source/UI/MapView.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using graphics::Vector3;
using scene::Axis;
using view::GestureState;

constexpr float pi = std::numbers::pi_v<float>;

// Calls the gesture handlers with recognizers whose values and states the test sets.
class Hand {
 public:
  explicit Hand(const ShownVenue& shown) {
    for (const auto& recognizer : shown.mapView->sceneView->gestureRecognizers()) {
      const std::string name = recognizer->actionNames().front();
      if (name == "handleOneFingerPanGesture:") pan_ = as<view::PanGestureRecognizer>(recognizer);
      if (name == "handleTwoFingerPanGesture:") tilt_ = as<view::PanGestureRecognizer>(recognizer);
      if (name == "handlePinchGesture:") pinch_ = as<view::PinchGestureRecognizer>(recognizer);
      if (name == "handleRotationGesture:")
        rotation_ = as<view::RotationGestureRecognizer>(recognizer);
    }
  }

  void pan(double x, double y, GestureState state = GestureState::changed) {
    pan_->setTranslation({x, y});
    pan_->setState(state);
  }
  void tilt(double y, GestureState state = GestureState::changed) {
    tilt_->setTranslation({0, y});
    tilt_->setState(state);
  }
  void pinch(double scale, GestureState state = GestureState::changed) {
    pinch_->setScale(scale);
    pinch_->setState(state);
  }
  void rotate(double rotation, GestureState state = GestureState::changed) {
    rotation_->setRotation(rotation);
    rotation_->setState(state);
  }

 private:
  template <class Recognizer>
  static std::shared_ptr<Recognizer> as(const std::shared_ptr<view::GestureRecognizer>& any) {
    return std::static_pointer_cast<Recognizer>(any);
  }

  std::shared_ptr<view::PanGestureRecognizer> pan_;
  std::shared_ptr<view::PanGestureRecognizer> tilt_;
  std::shared_ptr<view::PinchGestureRecognizer> pinch_;
  std::shared_ptr<view::RotationGestureRecognizer> rotation_;
};

class MapViewGestures : public testing::Test {
 protected:
  Vector3 orbit() const { return shown.mapView->cameraOrbit->position(); }
  Vector3 angles() const { return shown.mapView->cameraOrbit->eulerAngles(); }
  float height() const { return shown.camera().position().z; }

  ShownVenue shown;
  Hand hand{shown};
};

TEST_F(MapViewGestures, OneFingerMovesTheOrbitPointByUnit) {
  hand.pan(3, 0, GestureState::began);  // the values of the first event are not applied
  hand.pan(13, 5);
  EXPECT_EQ(orbit(), Vector3(490, 505, 0));
  hand.pan(13, 25);
  EXPECT_EQ(orbit(), Vector3(490, 525, 0));
  EXPECT_EQ(shown.mapView->labelsOrbit->position(), orbit());
  hand.pan(40, 40, GestureState::ended);
  EXPECT_EQ(orbit(), Vector3(490, 525, 0));
  EXPECT_EQ(shown.mapView->lastX, 40);

  shown.mapView->cameraOrbit->setEulerAngle(Axis::z, pi / 2);
  hand.pan(0, 0, GestureState::began);
  hand.pan(10, 0);
  EXPECT_NEAR(orbit().x, 490, 1e-4);
  EXPECT_NEAR(orbit().y, 515, 1e-4);
  hand.pan(10, 10);
  EXPECT_NEAR(orbit().x, 480, 1e-4);
}

TEST_F(MapViewGestures, TwoFingersTiltWithinTheirRange) {
  hand.tilt(80);  // downward: past the vertical
  EXPECT_EQ(angles().x, 0);
  hand.tilt(-200);  // a quarter of the view's height is 45 degrees
  EXPECT_FLOAT_EQ(angles().x, pi / 4);
  hand.tilt(-270);  // more than 60 degrees is rejected
  EXPECT_FLOAT_EQ(angles().x, pi / 4);
  hand.tilt(-240);
  EXPECT_FLOAT_EQ(angles().x, 0.3F * pi);
  hand.tilt(-240, GestureState::ended);
  EXPECT_FLOAT_EQ(shown.mapView->lastHeightRatio, -0.3F);

  hand.tilt(80);  // the next gesture begins where this one ended
  EXPECT_FLOAT_EQ(angles().x, 0.2F * pi);
  shown.mapView->lastGoodHeightRatio = -1;
  hand.tilt(1e6, GestureState::ended);
  EXPECT_TRUE(std::signbit(shown.mapView->lastHeightRatio));
}

TEST_F(MapViewGestures, PinchesMultiply) {
  hand.pinch(1, GestureState::began);
  hand.pinch(2);
  EXPECT_EQ(height(), 687);
  hand.pinch(2, GestureState::ended);
  hand.pinch(2);
  EXPECT_EQ(height(), 343.5F);
  hand.pinch(2, GestureState::ended);
  EXPECT_EQ(shown.mapView->scaleEnd, 4);

  hand.pinch(3);
  hand.pinch(3, GestureState::canceled);
  EXPECT_EQ(shown.mapView->scaleEnd, 4);
  EXPECT_EQ(shown.mapView->scaleStart, 12);
}

TEST_F(MapViewGestures, APinchStopsNearTheFloorAndLeadsAway) {
  shown.camera().setPosition(Axis::z, 90);
  hand.pinch(1.5);
  EXPECT_EQ(height(), 90);
  EXPECT_EQ(shown.mapView->scaleStart, 1);
  hand.pinch(0.5);
  EXPECT_EQ(height(), 2748);
}

TEST_F(MapViewGestures, NoNumberOfPinchesLeadsBeyondAllNumbers) {
  shown.mapView->scaleEnd = 1e-300;
  hand.pinch(1e-20);
  EXPECT_TRUE(std::isfinite(height()));
}

TEST_F(MapViewGestures, RotationsAddUp) {
  const DiagnosticLines lines;
  hand.rotate(0.25, GestureState::began);
  hand.rotate(0.5);
  EXPECT_EQ(angles().z, 0.5F);
  EXPECT_EQ(shown.mapView->labelsOrbit->eulerAngles().z, 0.5F);
  EXPECT_TRUE(lines.contains("cameraOrbit angle (0, 0, 0.5)"));
  hand.rotate(0.5, GestureState::ended);
  hand.rotate(0.25);
  EXPECT_EQ(angles().z, 0.75F);
}

TEST(MapViewGesturesDeathTest, NeedTheRig) {
  const auto mapView = MapView::make({{0, 0}, {100, 100}});
  view::PinchGestureRecognizer pinch;
  view::PanGestureRecognizer pan;
  EXPECT_DEATH(mapView->handlePinchGesture(pinch), "unexpectedly found nil");
  EXPECT_DEATH(mapView->handleOneFingerPanGesture(pan), "unexpectedly found nil");
}

TEST(MotionType, HasFourRawValues) {
  EXPECT_EQ(makeMotionType(3), MotionType::Multi);
  EXPECT_EQ(makeMotionType(4), std::nullopt);
  EXPECT_EQ(makeMotionType(-1), std::nullopt);
}

}  // namespace
}  // namespace orivanta::test
