#include "Source/UI/MapViewMessages.hpp"

#include <gtest/gtest.h>

#include "Source/UI/MapViewDirections.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using graphics::Vector3;

TEST(MapViewMessages, CallOperationsByTheirSelector) {
  ShownVenue shown;
  const std::vector<MessageArgument> ends{Vector3(0, 0, 0), Vector3(9, 0, 0)};
  std::vector<MessageArgument> strip = ends;
  strip.insert(strip.end(), {4.0, graphics::colors::red, 1.0});
  const auto& nodes = MapViewDirectionsPathNodes::nodes();
  EXPECT_TRUE(perform(*shown.mapView, "drawPathSegment:positionB:", ends));
  EXPECT_EQ(nodes.size(), 3U);
  EXPECT_TRUE(perform(*shown.mapView,
                      "drawPathSegmentStrip:positionB:pathWidth:pathColor:elevation:", strip));
  EXPECT_EQ(nodes.size(), 4U);
  const std::vector<MessageArgument> yes{true};
  EXPECT_TRUE(perform(*shown.mapView, "clearPaths:", yes));
  EXPECT_TRUE(nodes.empty());
  EXPECT_TRUE(perform(*shown.mapView, "removeHighlightNode", {}));
}

TEST(MapViewMessages, RefuseWhatDoesNotFit) {
  ShownVenue shown;
  const std::vector<MessageArgument> numbers{1.0, 2.0};
  for (const std::string_view selector : messageSelectors())
    EXPECT_EQ(perform(*shown.mapView, selector, numbers).error().code, 2) << selector;
  EXPECT_EQ(perform(*shown.mapView, "clearPaths", {}).error().code, 1);
  EXPECT_TRUE(MapViewDirectionsPathNodes::nodes().empty());
}

}  // namespace
}  // namespace orivanta::test
