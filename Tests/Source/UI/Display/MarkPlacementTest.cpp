#include "Source/UI/Display/MarkPlacement.hpp"

#include <gtest/gtest.h>

namespace orivanta {
namespace {

using graphics::Point;

const graphics::Rect view{{0, 0}, {800, 600}};

struct Scene {
  std::vector<MarkPlace> marks;
  std::vector<std::vector<Point>> route;

  std::vector<MarkLook> looks(const std::vector<MarkLook>& before = {}) const {
    return placeMarks(marks, route, view, before);
  }
};

// A straight line between two points, both with a text.
Scene between(Point start, Point end) {
  return {{{start, {80, 18}}, {end, {130, 36}}}, {{start, end}}};
}

TEST(MarkPlacement, PinsWithTheirTextBelowWhereThereIsRoom) {
  const Scene scene = between({100, 300}, {600, 300});
  EXPECT_EQ(scene.looks(), (std::vector<MarkLook>{{}, {}}));
  const std::vector<MarkLook> before{{MarkSymbol::pin, TextSide::above}, {}};
  EXPECT_EQ(scene.looks(before), before) << "a placement stays while it is good enough";
}

TEST(MarkPlacement, NothingHidesTheOtherEndOfAShortRoute) {
  for (const Point end : {Point{440, 300}, {400, 260}, {400, 340}, {425, 325}, {470, 230}}) {
    const Scene scene = between({400, 300}, end);
    const auto looks = scene.looks();
    const MarkFrames start = framesOf(scene.marks[0], looks[0]);
    const MarkFrames other = framesOf(scene.marks[1], looks[1]);
    for (const graphics::Rect& part : {start.symbol, start.text})
      EXPECT_FALSE(part.intersects(other.symbol) || part.intersects(other.text))
          << end.x << ' ' << end.y;
  }
}

TEST(MarkPlacement, APinDoesNotStandOnAShortRoute) {
  const Scene upwards = between({400, 300}, {400, 240});
  EXPECT_EQ(upwards.looks()[0].symbol, MarkSymbol::dot);
  EXPECT_EQ(upwards.looks()[1].symbol, MarkSymbol::pin) << "it stands beyond the end";
  EXPECT_EQ(between({400, 500}, {400, 40}).looks()[0].symbol, MarkSymbol::pin) << "a long one";
}

TEST(MarkPlacement, TextsStayInTheView) {
  const Scene scene = between({400, 595}, {795, 300});
  EXPECT_EQ(scene.looks()[0].side, TextSide::above);
  EXPECT_EQ(scene.looks()[1].side, TextSide::left);
}

TEST(MarkPlacement, TextsAreShiftedIntoTheirRoomButNotAwayFromTheirSymbol) {
  for (const TextSide side : {TextSide::below, TextSide::above})
    for (const auto& [x, left] : {std::pair{400, 360}, {795, 720}, {8, 0}, {900, 820}}) {
      MarkPlace mark{{static_cast<double>(x), 300}, {80, 18}};
      mark.shape.room = view;
      EXPECT_EQ(framesOf(mark, {MarkSymbol::pin, side}).text.minX(), left) << x;
    }
}

}  // namespace
}  // namespace orivanta
