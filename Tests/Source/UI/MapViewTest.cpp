#include "Source/UI/MapView.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using testing::ElementsAre;

TEST(MapView, LaysOutItsPartsAtAnySize) {
  const auto mapView = MapView::make({{3, 4}, {320, 480}});
  EXPECT_EQ(mapView->activityIndicator->frame(), mapView->frame());
  for (const graphics::Size size : {graphics::Size{320, 480}, graphics::Size{1024, 200}}) {
    mapView->setFrame({{5, 5}, size});
    mapView->layoutIfNeeded();
    const auto parts = mapView->subviews();
    ASSERT_EQ(parts.size(), 3U);
    EXPECT_EQ(parts[0], mapView->sceneView);
    EXPECT_EQ(parts[0]->frame(), (graphics::Rect{{0, 0}, size}));
    EXPECT_EQ(parts[1]->frame(), (graphics::Rect{{size.width - 80, size.height - 35}, {70, 30}}));
    EXPECT_EQ(parts[2], mapView->activityIndicator);
    EXPECT_EQ(parts[2]->frame(), (graphics::Rect{{0, 0}, size}));
  }
  EXPECT_EQ(mapView->overlay().size(), (graphics::Size{320, 480}));
}

TEST(MapView, ItsOverlayTakesTheFirstSizeWhenItWasMadeWithoutOne) {
  const auto mapView = MapView::make();
  mapView->layoutIfNeeded();
  for (const graphics::Size size : {graphics::Size{320, 480}, graphics::Size{1024, 200}}) {
    mapView->setFrame({{5, 5}, size});
    mapView->layoutIfNeeded();
    EXPECT_EQ(mapView->overlay().size(), (graphics::Size{320, 480}));
  }
}

TEST(MapView, BuildsTheSceneOnTheFirstFloor) {
  ShownVenue shown(false);
  const DiagnosticLines lines;
  EXPECT_TRUE(shown.mapView->activityIndicator->isAnimating());
  shown.load();
  EXPECT_THAT(shown.delegate->calls, ElementsAre("loaded"));
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(0));
  EXPECT_EQ(shown.mapView->activityIndicator->superview(), nullptr);
  EXPECT_THAT(lines.lines(),
              testing::IsSupersetOf({"Shown", "childNodes 0", "Floor with no obj: Roof",
                                     "bounding box: min:(0, 0, 0) max:(1000, 1000, 2)",
                                     "camera distance: 1374", "camera shiftX: 500 shiftY: 500"}));

  const auto children = shown.mapView->sceneView->scene()->rootNode()->children();
  ASSERT_EQ(children.size(), 5U);  // floor, two orbits, two lights
  EXPECT_EQ(children[0], shown.floor(0)->mapObject);
  EXPECT_EQ(children[1], shown.mapView->cameraOrbit);
  EXPECT_EQ(children[1]->position(), graphics::Vector3(500, 500, 0));
  EXPECT_EQ(shown.camera().position(), graphics::Vector3(0, 0, 1374));
  EXPECT_EQ(shown.camera().camera()->zFar, 5000);
  EXPECT_EQ(shown.camera().camera()->zNear, 40);
  EXPECT_EQ(children[2], shown.mapView->labelsOrbit);
  EXPECT_FLOAT_EQ(children[2]->eulerAngles().x, -1.5707964F);
  EXPECT_FLOAT_EQ(children[2]->eulerAngles().y, -3.1415927F);
  EXPECT_EQ(children[3]->light()->type, scene::LightType::directional);
  EXPECT_TRUE(children[3]->light()->castsShadow);
  EXPECT_EQ(children[3]->position(), graphics::Vector3(-50, 20, 0));
  EXPECT_EQ(children[3]->eulerAngles(), graphics::Vector3(45, 0, 0));
  EXPECT_EQ(children[4]->light()->color, graphics::colors::darkGray);
  EXPECT_EQ(children[4], shown.mapView->light);
}

TEST(MapView, NamesTheActionsOfItsRecognizersAndReplacesThemOnASecondStart) {
  ShownVenue shown;
  shown.mapView->startScene();
  std::vector<std::string> names;
  for (const auto& recognizer : shown.mapView->sceneView->gestureRecognizers())
    names.push_back(recognizer->actionNames().front());
  EXPECT_THAT(
      names, ElementsAre("sceneTapped:", "handleTwoFingerPanGesture:", "handleOneFingerPanGesture:",
                         "handlePinchGesture:", "handleRotationGesture:"));
}

TEST(MapView, SwitchesFloors) {
  ShownVenue shown;
  const DiagnosticLines lines;
  const auto firstChild = [&] {
    return shown.mapView->sceneView->scene()->rootNode()->children().front();
  };
  for (const int outside : {-1, 3}) shown.mapView->changeMap(outside);
  EXPECT_TRUE(lines.lines().empty());

  shown.mapView->changeMap(1);
  EXPECT_EQ(shown.mapView->currentMap(), shown.floor(1));
  EXPECT_EQ(firstChild(), shown.floor(1)->mapObject);
  EXPECT_EQ(shown.floor(0)->mapObject->parent(), nullptr);
  EXPECT_EQ(shown.mapView->cameraOrbit->position(), graphics::Vector3(500, 500, 0));

  shown.mapView->changeMap(shown.floor(1));
  EXPECT_TRUE(lines.contains("Skipping map switch. At: Upper floor, target: Upper floor"));
  shown.mapView->changeMap(2);
  EXPECT_TRUE(lines.contains("No valid map!"));
  EXPECT_EQ(firstChild(), shown.floor(1)->mapObject);
}

TEST(MapView, StartsOnTheFirstFloorThatIsSwitchedToWhenTheFirstHasNoModel) {
  for (const bool afterAnotherVenue : {false, true}) {
    ShownVenue shown(afterAnotherVenue);
    shown.delegate->calls.clear();
    std::swap(shown.venue->maps->front(), shown.venue->maps->back());
    const DiagnosticLines lines;
    shown.load();
    EXPECT_TRUE(lines.contains("No valid map!"));
    EXPECT_EQ(shown.mapView->currentMap(), nullptr);
    shown.mapView->changeMap(1);
    ASSERT_NE(shown.mapView->cameraOrbit, nullptr);
    EXPECT_EQ(shown.mapView->cameraOrbit->parent(), shown.mapView->sceneView->scene()->rootNode());
    EXPECT_EQ(*shown.mapView->cameraDistance, 1099);  // 800 / (2 tan 20 degrees)
    EXPECT_EQ(shown.mapView->sceneView->gestureRecognizers().size(), 5U);
  }
}

TEST(MapView, LeavesNothingBehindInASceneViewThatOutlivesIt) {
  ShownVenue shown;
  const auto sceneView = shown.mapView->sceneView;
  EXPECT_EQ(sceneView->gestureRecognizers().size(), 5U);
  shown.mapView = MapView::make();
  EXPECT_TRUE(sceneView->gestureRecognizers().empty());
  EXPECT_EQ(sceneView->rendererDelegate(), nullptr);
}

TEST(MapView, LoadsAVenueWithoutFloors) {
  ShownVenue shown(false);
  shown.venue->maps->clear();
  const DiagnosticLines lines;
  shown.load();
  EXPECT_TRUE(lines.contains("No maps at all!"));
  EXPECT_THAT(shown.delegate->calls, ElementsAre("loaded"));
}

TEST(MapViewDeathTest, StopsOnBrokenPromises) {
  ShownVenue shown(false);
  const std::string absence = "unexpectedly found nil while unwrapping an Optional value";
  shown.mapView->venue = nullptr;
  EXPECT_DEATH(shown.mapView->loadScene(), absence);
  EXPECT_DEATH(shown.mapView->changeMap(0), absence);
}

}  // namespace
}  // namespace orivanta::test
