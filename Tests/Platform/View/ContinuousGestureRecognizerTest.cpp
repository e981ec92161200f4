#include "Platform/View/ContinuousGestureRecognizer.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "Platform/View/PanGestureRecognizer.hpp"
#include "Platform/View/PinchGestureRecognizer.hpp"
#include "Platform/View/RotationGestureRecognizer.hpp"
#include "Tests/Support/Fingers.hpp"

namespace orivanta::view {
namespace {

using graphics::Point;

constexpr double pi = 3.14159265358979323846;
constexpr double close = 1e-9;

template <class Recognizer>
struct Stage {
  std::shared_ptr<View> view = std::make_shared<View>(graphics::Rect{{}, {400, 400}});
  test::GestureLog log;
  std::shared_ptr<Recognizer> recognizer = log.add<Recognizer>(*view, "it");
  test::Fingers fingers{view};
};

Point around(Point center, double radius, double degrees) {
  const double angle = degrees * pi / 180;
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

TEST(PanGestureRecognizer, CountsFromWhereItBegan) {
  Stage<PanGestureRecognizer> stage;
  auto& [view, log, pan, fingers] = stage;
  fingers.down(1, {100, 100}, 0);
  fingers.move(1, {106, 107}, 0.1);
  EXPECT_EQ(pan->state(), GestureState::possible);
  fingers.move(1, {106, 110}, 0.2);
  EXPECT_EQ(pan->state(), GestureState::began);
  EXPECT_EQ(pan->translation(), (Point{0, 0}));
  fingers.move(1, {116, 90}, 0.3);
  EXPECT_EQ(pan->translation(), (Point{10, -20}));
  EXPECT_EQ(pan->location(*view), (Point{116, 90}));
  pan->setTranslation({1, 1});
  fingers.move(1, {117, 90}, 0.4);
  EXPECT_EQ(pan->translation(), (Point{2, 1}));
  fingers.up(1, 0.5);
  EXPECT_EQ(log.take(), "it began, it changed, it ended");
  EXPECT_EQ(pan->state(), GestureState::possible);
}

TEST(PanGestureRecognizer, DoesNotJumpWhenFingersComeAndGo) {
  Stage<PanGestureRecognizer> stage;
  auto& [view, log, pan, fingers] = stage;
  fingers.down(1, {100, 100}, 0);
  fingers.move(1, {110, 100}, 0.1);
  fingers.move(1, {120, 100}, 0.2);
  fingers.down(2, {300, 300}, 0.3);
  fingers.move({{1, {130, 100}}, {2, {310, 300}}}, 0.4);
  EXPECT_EQ(pan->translation(), (Point{20, 0}));
  EXPECT_EQ(pan->location(*view), (Point{220, 200}));
  fingers.up(1, 0.5);
  fingers.move(2, {310, 305}, 0.6);
  EXPECT_EQ(pan->translation(), (Point{20, 5}));
  fingers.cancel(2, 0.7);
  EXPECT_EQ(log.take(), "it began, it changed, it canceled");
}

TEST(PinchGestureRecognizer, TellsTheScaleSinceItBegan) {
  Stage<PinchGestureRecognizer> stage;
  auto& [view, log, pinch, fingers] = stage;
  fingers.down(1, {100, 100}, 0);
  fingers.move(1, {150, 100}, 0.1);
  fingers.down(2, {242, 100}, 0.2);
  fingers.move({{1, {160, 130}}, {2, {252, 130}}}, 0.3);
  EXPECT_EQ(log.take(), "") << "parallel movement is not a pinch";
  fingers.move(2, {260, 130}, 0.4);
  EXPECT_EQ(pinch->state(), GestureState::began);
  EXPECT_EQ(pinch->scale(), 1.0);
  fingers.move({{1, {110, 130}}, {2, {310, 130}}}, 0.5);
  EXPECT_NEAR(pinch->scale(), 2.0, close);
  fingers.down(3, {10, 10}, 0.6);
  fingers.move(3, {20, 300}, 0.7);
  EXPECT_NEAR(pinch->scale(), 2.0, close) << "the first two count";
  fingers.up(1, 0.8);
  EXPECT_NEAR(pinch->scale(), 2.0, close);
  fingers.move(3, {310, 130 + std::hypot(290, 170) / 2}, 0.9);
  EXPECT_NEAR(pinch->scale(), 1.0, close);
  fingers.up(3, 1.0);
  EXPECT_EQ(log.take(), "it began, it changed, it ended");
}

TEST(PinchGestureRecognizer, StaysFiniteWhenFingersMeet) {
  Stage<PinchGestureRecognizer> stage;
  auto& [view, log, pinch, fingers] = stage;
  fingers.down(1, {100, 100}, 0);
  fingers.down(2, {100, 100}, 0.1);
  fingers.move(2, {120, 100}, 0.2);
  fingers.move(2, {150, 100}, 0.3);
  EXPECT_NEAR(pinch->scale(), 2.5, close);
  fingers.move(2, {100, 100}, 0.4);
  EXPECT_NEAR(pinch->scale(), 0.05, close);
  fingers.move(2, {120, 100}, 0.5);
  EXPECT_NEAR(pinch->scale(), 1.0, close);
}

TEST(RotationGestureRecognizer, CountsClockwiseBeyondHalfATurn) {
  Stage<RotationGestureRecognizer> stage;
  auto& [view, log, rotation, fingers] = stage;
  const Point center{200, 200};
  fingers.down(1, center, 0);
  fingers.down(2, around(center, 80, 0), 0);
  fingers.move(2, around(center, 80, 4), 0.1);
  EXPECT_EQ(rotation->state(), GestureState::possible);
  fingers.move(2, around(center, 80, 6), 0.2);
  EXPECT_EQ(rotation->state(), GestureState::began);
  EXPECT_EQ(rotation->rotation(), 0.0);
  for (int degrees = 10; degrees <= 570; degrees += 20)
    fingers.move(2, around(center, 80, degrees), 1);
  EXPECT_NEAR(rotation->rotation(), 564 * pi / 180, close) << "y points downwards";
  fingers.move(2, center, 2);
  fingers.move(2, around(center, 40, 560), 2);
  EXPECT_NEAR(rotation->rotation(), 554 * pi / 180, close) << "the fingers have met";
  fingers.down(3, {0, 0}, 3);
  fingers.up(2, 3);
  EXPECT_NEAR(rotation->rotation(), 554 * pi / 180, close);
  fingers.move(3, {0, 400}, 3);
  EXPECT_NEAR(rotation->rotation(), 464 * pi / 180, close);
  fingers.up(1, 3);
  EXPECT_EQ(log.take(), "it began, it changed, it ended");
}

}  // namespace
}  // namespace orivanta::view
