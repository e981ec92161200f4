// Dispatches touches to a map view and checks the camera and the delegate.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/MapView.hpp"
#include "Tests/Support/Fingers.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using graphics::Vector3;

Vector3 orbitOf(const ShownVenue& shown) { return shown.mapView->cameraOrbit->position(); }
Vector3 anglesOf(const ShownVenue& shown) { return shown.mapView->cameraOrbit->eulerAngles(); }

TEST(MapViewTouches, MoveTiltZoomAndTurn) {
  ShownVenue shown;
  Fingers fingers(shown.mapView);
  fingers.down(1, {400, 400}, 0);
  fingers.move(1, {420, 400}, 0.1);  // the gesture begins here; the movement before is not applied
  fingers.move(1, {450, 410}, 0.2);
  fingers.up(1, 0.3);
  EXPECT_EQ(orbitOf(shown), Vector3(470, 510, 0));

  fingers.down(1, {300, 600}, 1);
  fingers.down(2, {500, 600}, 1);
  for (int i = 1; i <= 24; ++i)
    fingers.move({{1, {300, 600.0 - 10 * i}}, {2, {500, 600.0 - 10 * i}}}, 1 + i * 0.01);
  fingers.up(1, 2);
  fingers.up(2, 2);
  EXPECT_NEAR(anglesOf(shown).x, 230.0 / 800 * std::numbers::pi, 0.05);
  EXPECT_EQ(orbitOf(shown), Vector3(470, 510, 0));

  const float before = shown.camera().position().z;
  fingers.down(1, {390, 400}, 3);
  fingers.down(2, {410, 400}, 3);
  for (int i = 1; i <= 20; ++i)
    fingers.move({{1, {390.0 - 2 * i, 400}}, {2, {410.0 + 2 * i, 400}}}, 3 + i * 0.01);
  fingers.up(1, 4);
  fingers.up(2, 4);
  EXPECT_LT(shown.camera().position().z, before / 3);
  EXPECT_EQ(anglesOf(shown).z, 0) << "one gesture at a time";
  EXPECT_EQ(shown.delegate->calls.size(), 1U) << "a finger that moved does not tap";
}

TEST(MapViewTouches, PinchAndTurnTogetherWhenAllowed) {
  for (const bool together : {false, true}) {
    ShownVenue shown;
    shown.mapView->allowsSimultaneousGestures = together;
    Fingers fingers(shown.mapView);
    fingers.down(1, {350, 400}, 0);
    fingers.down(2, {450, 400}, 0);
    for (int i = 1; i <= 30; ++i) {
      const double angle = i * 0.03;
      const double radius = 50 + 2 * i;
      fingers.move({{1, {400 - radius * std::cos(angle), 400 - radius * std::sin(angle)}},
                    {2, {400 + radius * std::cos(angle), 400 + radius * std::sin(angle)}}},
                   i * 0.01);
    }
    EXPECT_EQ(shown.camera().position().z < 1374 && anglesOf(shown).z != 0, together);
  }
}

TEST(MapViewTouches, TapsReachEveryShapeOfAFloor) {
  ShownVenue shown;
  for (const auto& shape : shown.floor(0)->mapObject->children()) {
    const auto middle = MapView::getGeomeryMidPoint(*shape->geometry());
    const auto hits =
        shown.mapView->sceneView->hits(shown.mapView->findPositionCameraViewport(middle));
    ASSERT_FALSE(hits.empty());
    const bool isCovered = shape->name() == "Ground";  // another shape covers its center
    EXPECT_EQ(hits.front().node == shape, !isCovered) << *shape->name();
    EXPECT_TRUE(std::any_of(hits.begin(), hits.end(),
                            [&](const scene::Hit& hit) { return hit.node == shape; }));
  }
}

// Sends random touches in any order, including those of a faulty screen.
class RandomFingers {
 public:
  RandomFingers(const std::shared_ptr<view::View>& root, std::uint32_t seed)
      : dispatcher_(root), random_(seed) {}

  void play(int touches) {
    for (int i = 0; i < touches; ++i) {
      time_ += std::exponential_distribution(10.0)(random_);
      const auto phase =
          static_cast<view::TouchPhase>(std::discrete_distribution<int>{3, 10, 2, 0.3}(random_));
      std::uniform_real_distribution<double> place(-50, 850);
      dispatcher_.dispatch({random_() % 4, phase, {place(random_), place(random_)}, time_});
    }
  }

 private:
  view::TouchDispatcher dispatcher_;
  std::mt19937 random_;
  double time_ = 0;
};

TEST(MapViewTouches, NeverLeadTheCameraAstray) {
  ShownVenue shown;
  shown.mapView->addMarker(std::make_shared<MapViewMarker2D>(graphics::Size{20, 20}, nullptr));
  for (std::uint32_t seed = 0; seed < 10'000; ++seed) {
    shown.mapView->allowsSimultaneousGestures = seed % 2 == 1;
    RandomFingers(shown.mapView, seed).play(20);
    const Vector3 angles = anglesOf(shown);
    const Vector3 orbit = orbitOf(shown);
    for (const float value :
         {angles.x, angles.y, angles.z, orbit.x, orbit.y, orbit.z, shown.camera().position().z})
      ASSERT_TRUE(std::isfinite(value)) << "seed " << seed;
    ASSERT_GE(angles.x, 0) << "seed " << seed;
    ASSERT_LT(angles.x, std::numbers::pi_v<float> / 3) << "seed " << seed;
    ASSERT_GT(shown.camera().position().z, 0) << "seed " << seed;
  }
}

}  // namespace
}  // namespace orivanta::test
