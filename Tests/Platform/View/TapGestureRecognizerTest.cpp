#include "Platform/View/TapGestureRecognizer.hpp"

#include <gtest/gtest.h>

#include "Tests/Support/Fingers.hpp"

namespace orivanta::view {
namespace {

struct Case {
  const char* what;
  std::size_t taps;
  std::size_t touches;
  const char* played;
  const char* expected;
};

const Case cases[] = {
    {"a tap", 1, 1, "tap 0 1 50 50", "tap ended"},
    {"two taps are two", 1, 1, "tap 0 1 50 50; tap 5 1 50 50; down 6 2 50 50", "tap ended"},
    {"held for too long", 1, 1, "down 0 1 50 50; up 0.8 1", ""},
    {"trembled", 1, 1, "down 0 1 50 50; move 0.1 1 56 58; up 0.2 1", "tap ended"},
    {"moved away and back", 1, 1, "down 0 1 50 50; move 0.1 1 50 61; move 0.2 1 50 50; up 0.3 1",
     ""},
    {"canceled", 1, 1, "down 0 1 50 50; cancel 0.1 1", ""},
    {"a second finger", 1, 1, "down 0 1 50 50; tap 0.1 2 90 50; up 0.3 1", ""},
    {"two fingers for two", 1, 2, "down 0 1 50 50; tap 0.1 2 90 50; up 0.3 1", "tap ended"},
    {"one finger for two", 1, 2, "tap 0 1 50 50", ""},
    {"a double tap", 2, 1, "tap 0 1 50 50; tap 0.4 2 60 50", "tap ended"},
    {"a pause too long, then a double tap", 2, 1, "tap 0 1 50 50; tap 0.5 1 50 50; tap 0.7 1 50 50",
     "tap ended"},
    {"twice with too long a pause", 2, 1, "tap 0 1 50 50; tap 0.5 1 50 50", ""},
    {"at two places", 2, 1, "tap 0 1 10 50; tap 0.3 1 90 50", ""},
    {"a tap, a failure, a tap", 2, 1,
     "tap 0 1 50 50; down 0.2 1 50 50; cancel 0.25 1; tap 0.3 1 50 50", ""},
};

TEST(TapGestureRecognizer, EndsForTheRightTouchesAlone) {
  for (const Case& each : cases) {
    const auto view = std::make_shared<View>(graphics::Rect{{}, {100, 100}});
    test::GestureLog log;
    const auto tap = log.add<TapGestureRecognizer>(*view, "tap");
    tap->numberOfTapsRequired = each.taps;
    tap->numberOfTouchesRequired = each.touches;
    test::Fingers fingers(view);
    fingers.play(each.played);
    const std::string happened = log.take();
    EXPECT_EQ(happened, each.expected) << each.what;
    EXPECT_EQ(tap->state(), GestureState::possible) << each.what;
  }
}

}  // namespace
}  // namespace orivanta::view
