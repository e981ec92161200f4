#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/View/TouchDispatcher.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Polygon.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using graphics::Point;
using graphics::Vector3;
using testing::ElementsAre;
namespace colors = graphics::colors;

void tap(const ShownVenue& shown, Point at) {
  view::TouchDispatcher fingers(shown.mapView);
  fingers.dispatch({1, view::TouchPhase::began, at, 0.0});
  fingers.dispatch({1, view::TouchPhase::ended, at, 0.1});
}

scene::Contents contentsOf(const ShownVenue& shown, const std::string& shape) {
  return shown.floor(0)
      ->mapObject->childNode(shape)
      ->geometry()
      ->firstMaterial()
      ->diffuse()
      .contents;
}

TEST(MapViewSelection, TellsWhatIsTapped) {
  ShownVenue shown;
  const DiagnosticLines lines;
  const auto at = [&](float x, float y) {
    return shown.mapView->findPositionCameraViewport({x, y, 2});
  };
  std::vector<std::string> places;
  shown.mapView->placeTapped = [&](const std::shared_ptr<Location>& place) {
    places.push_back(place ? *place->name : "none");
    EXPECT_EQ(shown.delegate->calls.size(), places.size() + 1) << "the delegate is told first";
  };
  tap(shown, at(200, 200));  // the cafe
  tap(shown, at(700, 700));  // the hall, which has no location
  tap(shown, at(450, 450));  // a shape that is not a polygon
  tap(shown, at(50, 500));   // the slab
  shown.mapView->cameraOrbit->setPosition({9000, 9000, 0});
  tap(shown, {400, 400});  // empty space
  EXPECT_THAT(shown.delegate->calls,
              ElementsAre("loaded", "cafe", "nothing", "nothing", "nothing", "nothing"));
  EXPECT_THAT(places, ElementsAre("Cafe", "none", "none", "none", "none"));
  EXPECT_TRUE(lines.contains("Got Poly: cafe"));
  EXPECT_TRUE(lines.contains("Got Poly: nil"));
  EXPECT_TRUE(lines.contains("Location selected: [Cafe]"));
}

TEST(MapViewSelection, ATapHidesMarkersAndZoomsTheNextPinchFromTwoHundredUnits) {
  ShownVenue shown;
  const auto marker = std::make_shared<MapViewMarker2D>(graphics::Size{10, 10}, nullptr);
  shown.mapView->addMarker(marker);
  tap(shown, shown.mapView->findPositionCameraViewport({200, 200, 2}));
  EXPECT_FALSE(marker->node->hasParent());
  EXPECT_NEAR(shown.mapView->scaleEnd, 1374.0 / 200.0, 1e-6);
  EXPECT_EQ(shown.camera().position().z, 1374);
}

TEST(MapViewSelection, ClearingGoesBackToTheFirstHighlight) {
  ShownVenue shown;
  const graphics::Color own{0, 0, 1};
  shown.mapView->highlightPolygon(shown.polygon("cafe"));
  EXPECT_EQ(contentsOf(shown, "cafe"), scene::Contents(colors::red));
  shown.mapView->clearHighlightedPolygons();
  EXPECT_EQ(contentsOf(shown, "cafe"), scene::Contents(own));

  shown.mapView->highlightPolygon(shown.polygon("cafe"), colors::red);
  shown.mapView->highlightPolygon(shown.polygon("cafe"), colors::green);
  shown.mapView->changeMap(1);
  shown.mapView->clearHighlightedPolygons();
  EXPECT_EQ(contentsOf(shown, "cafe"), scene::Contents(colors::red));

  const auto unknown = Polygon::make(*RawData::parse(R"({"id": "elsewhere"})"));
  shown.mapView->highlightPolygon(unknown);
  shown.mapView->clearHighlightedPolygons();
}

TEST(MapViewSelection, FindsTheMiddleOfTheVerticesThatAnElementUses) {
  const std::vector<float> numbers{9, 9, 9, 0, 0, 0, 2, 4, 6};
  const auto* bytes = reinterpret_cast<const std::byte*>(numbers.data());
  scene::GeometrySource vertices;
  vertices.data = std::make_shared<std::vector<std::byte>>(bytes, bytes + 36);
  vertices.vectorCount = 3;
  for (const std::size_t bytesPerIndex : {1U, 2U, 4U, 8U}) {
    std::vector<std::byte> indices(3 * bytesPerIndex);  // 1, 2 and 1
    for (std::size_t i = 0; i < 3; ++i) indices[i * bytesPerIndex] = std::byte(i == 1 ? 2 : 1);
    const auto used = scene::Geometry::make(
        {vertices}, {{std::make_shared<const std::vector<std::byte>>(indices), bytesPerIndex}});
    EXPECT_EQ(MapView::getGeomeryMidPoint(*used), Vector3(1, 2, 3)) << bytesPerIndex;
  }
}

TEST(MapViewSelection, PlacesLocations) {
  ShownVenue shown;
  MapView& mapView = *shown.mapView;
  EXPECT_EQ(mapView.findPosition3D(*shown.location("stand-1")), Vector3(450, 450, 2)) << "by name";
  EXPECT_EQ(mapView.findPosition3D(*shown.location("cafe-1")), Vector3(200, 200, 2)) << "by shape";
  const auto loft = shown.location("loft-1");
  EXPECT_EQ(mapView.findPosition3D(*loft), Vector3(500, 500, 1)) << "middle of the floor";
  loft->nodes.push_back(shown.node(70, 80, 0.5));
  EXPECT_EQ(mapView.findPosition3D(*loft), Vector3(70, 80, 0.5F)) << "by node";
  mapView.changeMap(1);
  EXPECT_EQ(mapView.findPosition3D(*loft), Vector3(150, 150, 2));
}

TEST(MapViewSelection, MapsPositionsBetweenSceneViewAndOverlay) {
  ShownVenue shown;
  MapView& mapView = *shown.mapView;
  const auto near = [](Point point, double x, double y) {
    EXPECT_NEAR(point.x, x, 0.01);
    EXPECT_NEAR(point.y, y, 0.01);
  };
  // The center is 1374 tan(20 degrees) = 500.0951 units of the floor from an edge.
  constexpr float edge = 500.0951F;
  near(mapView.findPositionCameraViewport({500, 500, 0}), 400, 400);
  near(mapView.findPositionCameraViewport({500 - edge, 500 + edge, 0}), 0, 0);
  near(mapView.findPosition2D({500 - edge, 500 + edge, 0}), 0, 800);
  mapView.setFrame({{0, 0}, {400, 400}});  // the overlay keeps its size
  mapView.layoutIfNeeded();
  near(mapView.findPosition2D({500 - edge, 500 + edge, 0}), 0, 800);
  near(mapView.findPositionCameraViewport({500, 500, 0}), 200, 200);
  const Point there = mapView.findPositionCameraViewport({450, 450, 2});
  near(mapView.findViewportPosition(*shown.location("stand-1")), there.x, there.y);
}

}  // namespace
}  // namespace orivanta::test
