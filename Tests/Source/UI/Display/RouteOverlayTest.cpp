#include "Source/UI/Display/RouteOverlay.hpp"

#include <gtest/gtest.h>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/MarkColors.hpp"
#include "Source/UI/MapViewDirections.hpp"
#include "Tests/Support/CountedPixels.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

// The number of drawn segments in a map view, and whether all of them have the color.
int segmentsIn(const MapView& mapView, graphics::Color color) {
  int segments = 0;
  for (const auto& node : mapView.sceneView->scene()->rootNode()->children()) {
    const auto parts = node->children();
    if (parts.size() != 3 || !parts[2]->geometry()) continue;  // not a strip
    const auto contents = parts[2]->geometry()->firstMaterial()->diffuse().contents;
    if (contents == scene::Contents(color)) ++segments;
  }
  return segments;
}

TEST(RouteOverlay, ShowsOneRouteInEachOfTwoViews) {
  const DiagnosticLines quiet;
  const ShownVenue left;
  const ShownVenue right;
  RouteOverlay first(left.mapView, {left.node(100, 100, 0), left.node(300, 100, 0)});
  RouteOverlay second(right.mapView,
                      {right.node(200, 800, 0), right.node(200, 600, 0), right.node(400, 600, 0)});
  first.color = graphics::colors::red;
  second.color = graphics::colors::blue;
  first.show(1);
  second.show(1);
  right.mapView->clearPaths();
  left.mapView->drawCurrentPath();
  EXPECT_TRUE(MapViewDirectionsPathNodes::nodes().empty());
  EXPECT_EQ(segmentsIn(*left.mapView, graphics::colors::red), 1);
  EXPECT_EQ(segmentsIn(*right.mapView, graphics::colors::blue), 2);
  EXPECT_EQ(left.mapView->markers().size(), 2U);

  RouteOverlay other(left.mapView, {left.node(500, 500, 0), left.node(700, 500, 0)});
  other.color = graphics::colors::green;
  other.show(1);
  first.hide();
  EXPECT_EQ(segmentsIn(*left.mapView, graphics::colors::red), 0);
  EXPECT_EQ(segmentsIn(*left.mapView, graphics::colors::green), 1);
  EXPECT_EQ(segmentsIn(*right.mapView, graphics::colors::blue), 2);
}

TEST(RouteOverlay, FollowsTheFloorThatIsShown) {
  const DiagnosticLines quiet;
  const ShownVenue shown;
  const auto color = shown.mapView->pathColor;
  const NodeList path{shown.node(100, 100, 0), shown.node(300, 100, 0), shown.node(300, 100, 0, 1),
                      shown.node(500, 100, 0, 1), shown.node(500, 300, 0, 1)};
  {
    RouteOverlay overlay(shown.mapView, path, shown.location("cafe-1"));
    EXPECT_EQ(overlay.visits().size(), 2U);
    EXPECT_EQ(overlay.visitWith(*path[3]), overlay.firstVisitTo(*shown.floor(1)));
    overlay.show(1);
    EXPECT_EQ(segmentsIn(*shown.mapView, color), 1);
    shown.mapView->changeMap(1);
    overlay.arrange();
    EXPECT_EQ(segmentsIn(*shown.mapView, color), 2);
    EXPECT_EQ(shown.mapView->markers().size(), 2U) << "the arrival and the end";
    overlay.show(1, &overlay.visits().front());
    EXPECT_EQ(segmentsIn(*shown.mapView, color), 0);
    shown.mapView->startScene();
    overlay.arrange();
    EXPECT_EQ(segmentsIn(*shown.mapView, color), 1);
  }
  EXPECT_EQ(segmentsIn(*shown.mapView, color), 0);
  EXPECT_TRUE(shown.mapView->markers().empty());
  RouteOverlay(shown.mapView, {}).show(1);
}

TEST(RouteOverlay, NumbersTheStops) {
  const DiagnosticLines quiet;
  const ShownVenue shown;
  const auto cafe = shown.location("cafe-1");
  const NodeList path{shown.node(100, 100, 0), shown.node(300, 100, 0), shown.node(300, 100, 0, 1),
                      shown.node(500, 100, 0, 1), shown.node(500, 300, 0, 1)};
  std::vector<std::vector<std::uint8_t>> images;  // of the stop
  using Stops = std::vector<RouteOverlay::Stop>;
  for (const Stops& stops : {Stops{{3, cafe}}, {{1, cafe}, {3, cafe}}, {{3, cafe}, {3, nullptr}}}) {
    RouteOverlay overlay(shown.mapView, path);
    overlay.stops = stops;
    shown.mapView->changeMap(1);
    overlay.show(1);
    ASSERT_EQ(shown.mapView->markers().size(), 3U) << "the arrival, the stop and the end";
    const auto mark = std::dynamic_pointer_cast<MapViewMarker2D>(shown.mapView->markers()[1]);
    const auto pixels = mark->node->texture()->pixels();
    EXPECT_GT(countPixels(*mark->node->texture(), markColors::place), 80);
    images.emplace_back(pixels.begin(), pixels.end());
  }
  EXPECT_NE(images[0], images[1]);
  EXPECT_NE(images[0], images[2]) << "both numbers";
  EXPECT_NE(images[1], images[2]);
}

}  // namespace
}  // namespace orivanta::test
