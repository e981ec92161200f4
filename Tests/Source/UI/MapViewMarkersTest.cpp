#include <gtest/gtest.h>

#include "Platform/Scene/Node.hpp"
#include "Source/UI/MapView.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

struct Placed {
  float x;
  bool gives;  // whether it disappears when it collides
};

// The marker is 20 points wide. A point is 1.25 units of the floor.
std::shared_ptr<MapViewMarker2D> add(const ShownVenue& shown, const Placed& placed) {
  auto marker = std::make_shared<MapViewMarker2D>(graphics::Size{20, 20}, nullptr);
  marker->setPosition({placed.x, 500, 0});
  marker->hideWhenCollide = placed.gives;
  shown.mapView->addMarker(marker);
  return marker;
}

TEST(MapViewMarkers, GiveWay) {
  const struct {
    const char* what;
    std::vector<Placed> markers;
    std::string shown;  // one character per marker
  } cases[] = {
      {"the first may not disappear", {{500, false}, {500, true}, {500, true}}, "+--"},
      {"none may disappear", {{500, false}, {500, false}}, "++"},
      {"both may disappear: the earlier one does", {{500, true}, {500, true}}, "-+"},
      {"the later may disappear", {{500, false}, {500, true}}, "+-"},
      {"apart", {{400, true}, {500, true}}, "++"},
      {"a hidden marker hides no other marker", {{500, true}, {510, false}, {480, true}}, "-++"},
      {"chain", {{500, true}, {515, true}, {530, true}}, "--+"}};
  ShownVenue shown;
  for (const auto& [what, markers, expected] : cases) {
    std::vector<std::shared_ptr<MapViewMarker2D>> added;
    for (const Placed& placed : markers) added.push_back(add(shown, placed));
    shown.mapView->updateMarkerVisibility();
    std::string visible;
    for (const auto& marker : added) visible += marker->node->hasParent() ? '+' : '-';
    EXPECT_EQ(visible, expected) << what;
    for (const auto& marker : added) shown.mapView->removeMarker(marker);
  }
  EXPECT_TRUE(shown.mapView->markers().empty());
}

TEST(MapViewMarkers, FollowTheCameraAndComeBack) {
  ShownVenue shown;
  const auto left = add(shown, {480, true});
  const auto right = add(shown, {500, false});
  shown.mapView->updateMarkerVisibility();
  EXPECT_FALSE(left->node->hasParent());

  shown.camera().setPosition({0, 0, 687});
  shown.mapView->willRenderScene(*shown.mapView->sceneView, nullptr, 0);
  EXPECT_NEAR(left->node->position().x, 400 - 20 * 800 / 500.1, 0.1);
  shown.mapView->updateMarkerVisibility();
  EXPECT_TRUE(left->node->hasParent());
  shown.mapView->changeMap(1);
  EXPECT_TRUE(left->node->hasParent());
}

TEST(MapViewMarkers, ASingleHiddenOneComesBackUnlessItWasAddedTwice) {
  ShownVenue shown;
  const auto marker = add(shown, {500, true});
  marker->node->removeFromParent();
  shown.mapView->updateMarkerVisibility();
  EXPECT_TRUE(marker->node->hasParent());
  shown.mapView->addMarker(marker);  // collides with itself
  shown.mapView->updateMarkerVisibility();
  EXPECT_FALSE(marker->node->hasParent());
}

TEST(MapViewMarkers, RemovingKnowsTheObjectNotItsLook) {
  ShownVenue shown;
  const auto kept = add(shown, {500, false});
  const auto stranger = std::make_shared<MapViewMarker2D>(graphics::Size{20, 20}, nullptr);
  shown.mapView->removeMarker(stranger);
  shown.mapView->removeMarker(nullptr);
  EXPECT_EQ(shown.mapView->markers().size(), 1U);
  EXPECT_EQ(kept->node->name(), "LOCATION_MARKER");
}

TEST(MapViewMarkersDeathTest, StopOnBrokenPromises) {
  ShownVenue shown;
  EXPECT_DEATH(shown.mapView->addMarker(nullptr), "unexpectedly found nil");
  const MapViewMarker base;
  const MapViewMarker2D flat({1, 1}, nullptr);
  EXPECT_FALSE(base.collidesWithMarker(flat));
  EXPECT_DEATH(flat.collidesWithMarker(base), "2D marker");
}

TEST(MapViewMarkers, MoveToARenewedOverlay) {
  ShownVenue shown;
  const auto visible = add(shown, {500, false});
  const auto hidden = add(shown, {500, true});
  shown.mapView->updateMarkerVisibility();
  shown.mapView->setFrame({{0, 0}, {400, 200}});
  shown.mapView->layoutIfNeeded();
  shown.mapView->renewOverlay();
  EXPECT_EQ(shown.mapView->overlay().size(), (graphics::Size{400, 200}));
  EXPECT_EQ(visible->node->parent(), shown.mapView->spriteScene);
  EXPECT_FALSE(hidden->node->hasParent());
  EXPECT_NEAR(visible->node->position().x, 200, 1e-3);
}

}  // namespace
}  // namespace orivanta::test
