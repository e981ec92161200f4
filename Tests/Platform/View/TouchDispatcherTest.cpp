#include "Platform/View/TouchDispatcher.hpp"

#include <gtest/gtest.h>

#include <cmath>

#include "Platform/View/PanGestureRecognizer.hpp"
#include "Platform/View/PinchGestureRecognizer.hpp"
#include "Platform/View/RotationGestureRecognizer.hpp"
#include "Platform/View/TapGestureRecognizer.hpp"
#include "Tests/Support/Fingers.hpp"

namespace orivanta::view {
namespace {

// A view with the recognizers of a map: a tap, pans with one and with two fingers, pinch, rotation.
struct Stage {
  std::shared_ptr<View> root = std::make_shared<View>(graphics::Rect{{}, {400, 400}});
  std::shared_ptr<View> map = std::make_shared<View>(graphics::Rect{{0, 100}, {400, 300}});
  test::GestureLog log;
  std::shared_ptr<TapGestureRecognizer> tap = log.add<TapGestureRecognizer>(*map, "tap");
  std::shared_ptr<PanGestureRecognizer> two = log.add<PanGestureRecognizer>(*map, "two");
  std::shared_ptr<PanGestureRecognizer> one = log.add<PanGestureRecognizer>(*map, "one");
  std::shared_ptr<PinchGestureRecognizer> pinch = log.add<PinchGestureRecognizer>(*map, "pinch");
  std::shared_ptr<RotationGestureRecognizer> turn =
      log.add<RotationGestureRecognizer>(*map, "turn");
  test::Fingers fingers{root};

  Stage() {
    two->minimumNumberOfTouches = two->maximumNumberOfTouches = 2;
    one->minimumNumberOfTouches = one->maximumNumberOfTouches = 1;
    root->addSubview(map);
  }
};

TEST(TouchDispatcher, LetsOneGestureRunAtATime) {
  struct Case {
    const char* what;
    std::string played;
    const char* expected;
  };
  const std::string two = "down 0 1 100 200 2 300 200; ";  // side by side
  const Case cases[] = {
      {"a drag", "down 0 1 100 200; move 0 1 150 200; move 0 1 100 200; up 0.1 1",
       "one began, one changed, one ended"},
      {"a tap", "tap 0 1 100 200", "tap ended"},
      {"two fingers side by side",
       two + "move 1 1 100 240 2 300 240; move 2 1 0 240 2 300 140; up 3 1 2",
       "two began, two changed, two ended"},
      {"a pinch that goes on as a turn",
       two + "move 1 1 90 200 2 310 200; move 2 1 200 100 2 200 300; cancelAll 3",
       "pinch began, pinch changed, pinch canceled"},
      {"one finger becomes two and one again",
       "down 0 1 100 200; move 0 1 100 220; move 0 1 100 230; down 1 2 300 200;"
       "move 1 1 100 250 2 300 220; move 1 1 100 260 2 300 230; up 2 2; move 2 1 110 260; up 3 1",
       "one began, one changed, one ended, two began, two changed, two ended, one began, one "
       "ended"},
      {"one finger becomes a pinch, and the pinch a drag",
       "down 0 1 100 200; move 0 1 100 220; down 1 2 300 220; move 1 1 90 220 2 310 220; up 2 1;"
       "move 2 2 310 240; up 2 2",
       "one began, one ended, pinch began, pinch ended, one began, one ended"},
  };
  for (const Case& each : cases) {
    Stage stage;
    stage.fingers.play(each.played);
    EXPECT_EQ(stage.log.take(), each.expected) << each.what;
    stage.fingers.tap(9, {100, 200}, 10);
    EXPECT_EQ(stage.log.take(), "tap ended") << "afterwards all is as before: " << each.what;
  }
}

TEST(TouchDispatcher, PassesOverWhatMakesNoSense) {
  Stage stage;
  stage.fingers.move(1, {100, 200}, 0);
  stage.fingers.up(1, 0);
  stage.fingers.down(1, {NAN, 200}, 0);
  stage.fingers.down(1, {1000, 200}, 0);
  stage.fingers.up(1, 0);
  stage.fingers.down(1, {100, 200}, 0);
  stage.fingers.down(1, {300, 200}, 0);
  for (const double far : {double{INFINITY}, 1e300, -1e7}) stage.fingers.move(1, {far, 200}, 0);
  EXPECT_EQ(stage.one->numberOfTouches(), 1U);
  EXPECT_EQ(stage.one->location(*stage.map), (graphics::Point{100, 100}));
  stage.fingers.up(1, -5);
  EXPECT_EQ(stage.log.take(), "tap ended");
}

TEST(TouchDispatcher, BringsFingersToTheForemostViewAndThoseAbove) {
  Stage stage;
  const auto button = std::make_shared<View>(graphics::Rect{{0, 0}, {100, 100}});
  stage.map->addSubview(button);
  stage.log.add<TapGestureRecognizer>(*button, "button");
  stage.log.add<TapGestureRecognizer>(*stage.root, "root");
  stage.fingers.tap(1, {50, 150}, 0);
  EXPECT_EQ(stage.log.take(), "button ended") << "the lowest comes first";
  stage.fingers.tap(1, {50, 50}, 1);
  EXPECT_EQ(stage.log.take(), "root ended");
  stage.fingers.down(1, {50, 150}, 2);
  stage.fingers.move(1, {50, 350}, 2);
  EXPECT_EQ(stage.log.take(), "one began") << "above the button, and outside of it";
}

TEST(TouchDispatcher, HoldsBackWhatLandsBesideARunningGesture) {
  Stage stage;
  const auto button = std::make_shared<View>(graphics::Rect{{0, 0}, {100, 100}});
  stage.map->addSubview(button);
  stage.log.add<PanGestureRecognizer>(*button, "button");
  stage.log.add<TapGestureRecognizer>(*button, "press");
  stage.one->maximumNumberOfTouches = 5;
  stage.fingers.down(1, {300, 300}, 0);
  stage.fingers.move(1, {350, 300}, 0);
  stage.fingers.tap(2, {50, 150}, 0);
  stage.fingers.down(2, {50, 150}, 1);
  stage.fingers.move(2, {90, 150}, 1);
  stage.fingers.up(1, 2);
  stage.fingers.up(2, 2);
  EXPECT_EQ(stage.log.take(), "one began, one changed, one ended");
}

TEST(TouchDispatcher, OutlivesWhatIsTouched) {
  struct Case {
    const char* what;
    void (*change)(Stage& stage);
    const char* expected;
  };
  const Case cases[] = {
      {"the view is gone",
       [](Stage& s) {
         s.map->removeFromSuperview();
         s.map = nullptr;
       },
       ""},
      {"the view left", [](Stage& s) { s.map->removeFromSuperview(); }, "one canceled"},
      {"the recognizer left", [](Stage& s) { s.map->removeGestureRecognizer(*s.one); },
       "one canceled"},
      {"the input is lost", [](Stage& s) { s.fingers.dispatcher().cancelAll(1); }, "one canceled"},
  };
  for (const Case& each : cases) {
    Stage stage;
    stage.fingers.down(1, {100, 200}, 0);
    stage.fingers.move(1, {100, 250}, 0);
    EXPECT_EQ(stage.log.take(), "one began");
    each.change(stage);
    stage.fingers.move(1, {100, 300}, 1);
    stage.fingers.up(1, 1);
    EXPECT_EQ(stage.log.take(), each.expected) << each.what;
    EXPECT_EQ(stage.one->numberOfTouches(), 0U) << each.what;
  }
}

TEST(TouchDispatcher, TakesTouchesAndChangesFromActions) {
  Stage stage;
  stage.one->addTarget("remove", [&](GestureRecognizer&) {
    stage.fingers.dispatcher().cancelAll(1);
    stage.map->removeGestureRecognizer(*stage.pinch);
    stage.map->removeFromSuperview();
  });
  stage.fingers.down(1, {100, 200}, 0);
  stage.fingers.move(1, {100, 250}, 0);
  EXPECT_EQ(stage.log.take(), "one began, one canceled");
  EXPECT_EQ(stage.pinch->view(), nullptr);
}

}  // namespace
}  // namespace orivanta::view
