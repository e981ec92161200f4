#include "Source/UI/Display/Styled/NamePlaces.hpp"

#include <gtest/gtest.h>

namespace orivanta {
namespace {

using graphics::Point;
using graphics::Rect;

// A store of 40 by 20 units with the anchor in its middle and four points around it, and a place
// without an area. All names are 50 points wide.
TEST(NamePlaces, FollowTheViewOnlyIfTheMainNameIsOutOfIt) {
  const std::vector<Point> anchors{{20, 10}, {0, 0}, {10, 5}, {30, 5}, {10, 15}, {30, 15}};
  FloorLabels labels{{}, {}, {}, {{0, 2, 6, 10}}, AreaRaster({}, {}), 1, {}};
  labels.labels.resize(anchors.size());
  for (PlaceLabel& label : labels.labels) label.names = {{50, 14}};
  NamePlaces names;
  // Where the origin of the floor is in a view of 400 by 300 points, and how large a unit is.
  const auto shownAt = [&](double x, double y, double scale, const std::vector<Rect>& panels = {}) {
    std::vector<ProjectedPlace> places;
    for (const Point& anchor : anchors)
      places.push_back({{x + scale * anchor.x, y + scale * anchor.y}, scale});
    names.choose(labels, places, {400, 300}, panels);
    EXPECT_EQ(places[1].pointsPerUnit, scale);
    std::vector<std::size_t> shown;
    for (std::size_t i = 0; i < places.size(); ++i)
      if (i != 1 && places[i].pointsPerUnit > 0) shown.push_back(i);
    EXPECT_EQ(shown.size(), 1U);
    return shown.front();
  };
  EXPECT_EQ(shownAt(0, 0, 10), 0U);
  EXPECT_EQ(shownAt(200, 0, 10), 4U) << "the middle is at the right edge";
  EXPECT_EQ(shownAt(170, 0, 10), 4U) << "and now just inside";
  EXPECT_EQ(shownAt(140, 0, 10), 0U);
  EXPECT_EQ(shownAt(170, 0, 10), 0U) << "it stays until it leaves";
  EXPECT_EQ(shownAt(0, 0, 10, {{{150, 50}, {100, 100}}}), 4U) << "a panel covers the middle";
  EXPECT_EQ(shownAt(0, 0, 30), 2U);
  EXPECT_EQ(shownAt(-600, -300, 30), 5U) << "the former one is out of the view";
  EXPECT_EQ(shownAt(300, 0, 6), 0U) << "the store is small";
  EXPECT_EQ(shownAt(5000, 0, 30), 0U) << "nothing of it is in the view";
}

}  // namespace
}  // namespace orivanta
