#include "Platform/View/TapGestureRecognizer.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/Fingers.hpp"

namespace orivanta::view {
namespace {

struct Case {
  const char* what;
  std::size_t taps;
  std::size_t touches;
  void (*play)(test::Fingers& fingers);
  const char* expected;
};

const Case cases[] = {
    {"a tap", 1, 1,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
     },
     "tap ended"},
    {"two taps are two", 1, 1,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
       f.tap(1, {50, 50}, 5);
       f.down(2, {50, 50}, 6);
     },
     "tap ended"},
    {"held for too long", 1, 1,
     [](auto& f) {
       f.down(1, {50, 50}, 0);
       f.up(1, 0.8);
     },
     ""},
    {"trembled", 1, 1,
     [](auto& f) {
       f.down(1, {50, 50}, 0);
       f.move(1, {56, 58}, 0.1);
       f.up(1, 0.2);
     },
     "tap ended"},
    {"moved away and back", 1, 1,
     [](auto& f) {
       f.down(1, {50, 50}, 0);
       f.move(1, {50, 61}, 0.1);
       f.move(1, {50, 50}, 0.2);
       f.up(1, 0.3);
     },
     ""},
    {"cancelled", 1, 1,
     [](auto& f) {
       f.down(1, {50, 50}, 0);
       f.cancel(1, 0.1);
     },
     ""},
    {"a second finger", 1, 1,
     [](auto& f) {
       f.down(1, {50, 50}, 0);
       f.tap(2, {90, 50}, 0.1);
       f.up(1, 0.3);
     },
     ""},
    {"two fingers for two", 1, 2,
     [](auto& f) {
       f.down(1, {50, 50}, 0);
       f.tap(2, {90, 50}, 0.1);
       f.up(1, 0.3);
     },
     "tap ended"},
    {"one finger for two", 1, 2,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
     },
     ""},
    {"a double tap", 2, 1,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
       f.tap(2, {60, 50}, 0.4);
     },
     "tap ended"},
    {"a pause too long, then a double tap", 2, 1,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
       f.tap(1, {50, 50}, 0.5);
       f.tap(1, {50, 50}, 0.7);
     },
     "tap ended"},
    {"twice with too long a pause", 2, 1,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
       f.tap(1, {50, 50}, 0.5);
     },
     ""},
    {"at two places", 2, 1,
     [](auto& f) {
       f.tap(1, {10, 50}, 0);
       f.tap(1, {90, 50}, 0.3);
     },
     ""},
    {"a tap, a failure, a tap", 2, 1,
     [](auto& f) {
       f.tap(1, {50, 50}, 0);
       f.down(1, {50, 50}, 0.2);
       f.cancel(1, 0.25);
       f.tap(1, {50, 50}, 0.3);
     },
     ""},
};

TEST(TapGestureRecognizer, EndsForTheRightTouchesAlone) {
  for (const Case& each : cases) {
    const auto view = std::make_shared<View>(graphics::Rect{{}, {100, 100}});
    test::GestureLog log;
    const auto tap = log.add<TapGestureRecognizer>(*view, "tap");
    tap->numberOfTapsRequired = each.taps;
    tap->numberOfTouchesRequired = each.touches;
    test::Fingers fingers(view);
    each.play(fingers);
    const std::string happened = log.take();
    EXPECT_EQ(happened, each.expected) << each.what;
    EXPECT_EQ(tap->state(), GestureState::possible) << each.what;
  }
}

}  // namespace
}  // namespace orivanta::view
