#include "Source/UI/Labels/LabelPlacement.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>

#include "Source/UI/Labels/LabelRank.hpp"

namespace orivanta {
namespace {

constexpr std::array<const char*, 5> sideNames{"center", "right", "left", "below", "above"};

std::shared_ptr<const LabelRoom> room(double width, double height) {
  LabelArea area;
  area.addRing(std::array<graphics::Point, 4>{{{-width / 2, -height / 2},
                                               {width / 2, -height / 2},
                                               {width / 2, height / 2},
                                               {-width / 2, height / 2}}});
  return std::make_shared<LabelRoom>(area, std::span<const LabelArea>(), LabelAnchor{{0, 0}, 1});
}

// A name of 80 by 20 points in one line, with an icon of 16 points.
PlaceLabel label(double rank = 50) {
  PlaceLabel made;
  made.rank = rank;
  made.scales = rank < 60 ? LabelScales{2.2, 3} : LabelScales{1.2, 2.2};
  made.symbolSize = 16;
  made.names = {{80, 20}, {46, 34}, {36, 48}};
  return made;
}

PlaceLabel longLabel() {
  PlaceLabel made = label();
  made.names.front().width = 111;
  return made;
}

PlaceLabel roomLabel(double width, double height, bool insideOnly = false) {
  PlaceLabel made = label();
  made.symbolFirst = false;
  made.room = room(width, height);
  made.insideOnly = insideOnly;
  return made;
}

// What is visible of a label: "" or the symbol as "o", the side and the number of lines.
std::string seen(const LabelPlacement& placement, std::size_t index = 0) {
  for (const ShownLabel& shown : placement.shown()) {
    if (shown.label != index) continue;
    std::string text = shown.symbolOpacity > 0 ? "o" : "";
    if (shown.nameOpacity > 0)
      text += std::string(text.empty() ? "" : " ") +
              sideNames.at(static_cast<std::size_t>(shown.side)) + " " +
              std::to_string(shown.lines);
    return text;
  }
  return "";
}

// A view of 400 by 300 points at 5 points per unit and meter.
LabelFrame frameAt(double time, std::span<const ProjectedPlace> places) {
  LabelFrame frame;
  frame.time = time;
  frame.view = {400, 300};
  frame.places = places;
  return frame;
}

TEST(LabelPlacement, FormFollowsRoomEdgesAndObstacles) {
  struct Case {
    const char* name;
    PlaceLabel label;
    graphics::Point anchor;
    std::vector<graphics::Rect> panels;
    std::vector<graphics::Rect> marks;
    double share;  // of names on other areas
    double tilt;
    const char* expected;
  };
  const graphics::Point middle{200, 150};
  const std::vector<Case> cases{
      {"wide room", roomLabel(20, 10), middle, {}, {}, 0, 0, "center 1"},
      {"narrow room", roomLabel(12, 10), middle, {}, {}, 0, 0, "center 2"},
      {"narrower room", roomLabel(8, 10), middle, {}, {}, 0, 0, "center 3"},
      {"flat room", roomLabel(12, 4.5), middle, {}, {}, 0, 0, "o right 1"},
      {"tilted room", roomLabel(12, 10), middle, {}, {}, 0, 1, "o right 1"},
      {"small room", roomLabel(5, 5), middle, {}, {}, 0, 0, "o right 1"},
      {"generated, small room", roomLabel(5, 5, true), middle, {}, {}, 0, 0, ""},
      {"generated, wide room", roomLabel(20, 10, true), middle, {}, {}, 0, 0, "center 1"},
      {"room at the edge", roomLabel(20, 10), {45, 150}, {}, {}, 0, 0, ""},
      {"room under a mark", roomLabel(20, 10), middle, {}, {{{195, 145}, {10, 10}}}, 0, 0, ""},
      {"point", label(), middle, {}, {}, 0, 0, "o right 1"},
      {"point at the right edge", label(), {350, 150}, {}, {}, 0, 0, "o left 1"},
      {"point in a shaft",
       label(),
       middle,
       {{{220, 0}, {180, 300}}, {{0, 0}, {180, 300}}},
       {},
       0,
       0,
       "o"},
      {"mark on the right", label(), middle, {}, {{{215, 145}, {10, 10}}}, 0, 0, "o left 1"},
      {"marks on both sides",
       label(),
       middle,
       {},
       {{{215, 145}, {10, 5}}, {{175, 145}, {10, 5}}},
       0,
       0,
       "o below 1"},
      {"mark on the symbol", label(), middle, {}, {{{198, 148}, {4, 4}}}, 0, 0, ""},
      {"over other rooms", label(), middle, {}, {}, 0.31, 0, "o"},
      {"a little over other rooms", label(), middle, {}, {}, 0.29, 0, "o right 1"},
      {"symbol at the edge", label(), {9, 150}, {}, {}, 0, 0, ""},
      {"behind the camera", label(), {std::nan(""), 0}, {}, {}, 0, 0, ""},
      {"long name", longLabel(), middle, {}, {}, 0, 0, "o right 2"},
  };
  for (const Case& tested : cases) {
    SCOPED_TRACE(tested.name);
    const std::vector<ProjectedPlace> places{{tested.anchor, 5}};
    LabelFrame frame = frameAt(0, places);
    frame.panels = tested.panels;
    frame.marks = tested.marks;
    frame.tilt = tested.tilt;
    frame.shareOnOtherAreas = [&](const graphics::Rect&, std::size_t) { return tested.share; };
    LabelPlacement placement;
    placement.setLabels({tested.label});
    placement.placeAtOnce(frame);
    EXPECT_EQ(seen(placement), tested.expected);
  }
}

TEST(LabelPlacement, ImportantLabelsComeFirst) {
  struct Case {
    const char* name;
    double firstRank, secondRank;
    double away;  // of the second, to the right
    double scale;
    const char* first;
    const char* second;
  };
  for (const Case& tested :
       std::vector<Case>{{"the more important one", 50, 60, 10, 5, "", "o right 1"},
                         {"the first of equal ones", 50, 50, 10, 5, "o right 1", ""},
                         {"a leading icon before a name", 99, 86, 40, 5, "o left 1", "o right 1"},
                         {"a name before another icon", 70, 60, 40, 5, "o right 1", ""},
                         {"only icons", 50, 60, 40, 2.5, "o", "o right 1"},
                         {"nothing below the scales", 50, 60, 40, 1, "", ""},
                         {"not a number", std::nan(""), 60, 10, 5, "", "o right 1"}}) {
    SCOPED_TRACE(tested.name);
    const std::vector<ProjectedPlace> places{{{200, 150}, tested.scale},
                                             {{200 + tested.away, 150}, tested.scale}};
    LabelPlacement placement;
    placement.setLabels({label(tested.firstRank), label(tested.secondRank)});
    placement.placeAtOnce(frameAt(0, places));
    EXPECT_EQ(seen(placement, 0), tested.first);
    EXPECT_EQ(seen(placement, 1), tested.second);
  }
}

// Runs 20 frames per second. A mark lies on the label from `blockedFrom` to `blockedTo`, and the
// scale is as given by the time.
TEST(LabelPlacement, LabelsWaitFadeAndStay) {
  struct Case {
    const char* name;
    double blockedFrom, blockedTo;
    double scale, laterScale;  // later is from second 1 on
    const char* expected;  // visibility every 0.1 s: ' ' hidden, '+' coming or going, '#' opaque
  };
  for (const Case& tested : std::vector<Case>{
           {"comes after two passes", 9, 9, 5, 5, " ++#################"},
           {"waits after it went", 0.5, 0.62, 5, 5, " ++##    ++#########"},
           {"stays slightly below its scale", 9, 9, 2.3, 2.0, " ++#################"},
           {"goes well below its scale", 9, 9, 2.3, 1.9, " ++#######++        "},
           {"does not come slightly below its scale", 9, 9, 2.1, 2.1, "                    "}}) {
    SCOPED_TRACE(tested.name);
    PlaceLabel point = label();
    point.names.clear();
    LabelPlacement placement;
    placement.setLabels({point});
    const std::vector<graphics::Rect> marks{{{195, 145}, {10, 10}}};
    std::string found;
    for (int i = 0; i < 41; ++i) {
      const double time = i / 20.0;
      const std::vector<ProjectedPlace> places{
          {{200, 150}, time < 1 ? tested.scale : tested.laterScale}};
      LabelFrame frame = frameAt(time, places);
      if (time >= tested.blockedFrom && time < tested.blockedTo) frame.marks = marks;
      placement.update(frame);
      if (i % 2 != 0 || i == 40) continue;
      const double opacity =
          placement.shown().empty() ? 0.0 : placement.shown().front().symbolOpacity;
      found += opacity >= 1 ? '#' : opacity > 0 ? '+' : ' ';
    }
    EXPECT_EQ(found, tested.expected);
    EXPECT_FALSE(placement.isChanging());
  }
}

TEST(LabelPlacement, RanksGrowWithAreas) {
  EXPECT_EQ(labelRank(48, 0, false), 48);
  EXPECT_DOUBLE_EQ(labelRank(48, 60, false), 51.5);
  EXPECT_EQ(labelRank(48, 1e9, false), 62);
  EXPECT_EQ(labelRank(48, 20, true), 22);
}

}  // namespace
}  // namespace orivanta
