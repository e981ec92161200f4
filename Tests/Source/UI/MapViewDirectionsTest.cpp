#include "Source/UI/MapViewDirections.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numbers>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/KeyframeAnimation.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/MapView.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {
namespace {

using graphics::Vector3;

constexpr float pi = std::numbers::pi_v<float>;

std::size_t drawnNodes() { return MapViewDirectionsPathNodes::nodes().size(); }

graphics::Vector4 textureAt(const scene::MaterialProperty& property, float u, float v) {
  return property.contentsTransform * graphics::Vector4(u, v, 0, 1);
}

TEST(MapViewDirections, DrawsTheSegmentsOfTheFloorShown) {
  ShownVenue shown;
  const auto a = shown.node(100, 100, 0.5);
  const auto b = shown.node(200, 100, 0.5);
  const auto above = shown.node(200, 100, 0.5, 1);
  const auto farther = shown.node(300, 100, 0.5, 1);
  const struct {
    const char* what;
    NodeList path;
    int from;
    std::size_t segments;
    std::string line;
  } cases[] = {
      {"one segment", {a, b}, 0, 1, "Drawing new 2 count path"},
      {"up an elevator", {a, b, above, farther}, 0, 1, "Drawing new 4 count path"},
      {"other floor between", {a, above, b}, 0, 0, "Drawing new 3 count path"},
      {"from the middle", {a, b, a, b}, 1, 2, "Drawing new 3 count path"},
      {"too short", {a, b}, 1, 0, "Path too short, aborting"},
      {"empty", {}, 0, 0, "Path too short, aborting"},
  };
  for (const auto& [what, path, from, segments, line] : cases) {
    const DiagnosticLines lines;
    shown.mapView->clearPaths();
    shown.mapView->drawPath(path, from);
    EXPECT_EQ(drawnNodes(), 3 * segments) << what;
    EXPECT_TRUE(lines.contains(line)) << what;
    EXPECT_EQ(shown.mapView->currentPath.has_value(), line.front() == 'D') << what;
  }
}

TEST(MapViewDirections, KeepsRouteAndHighlightFromFloorToFloor) {
  ShownVenue shown;
  const auto up = shown.node(200, 100, 0.5, 1);
  shown.mapView->drawPath({shown.node(0, 0, 0), shown.node(9, 0, 0), up, shown.node(9, 9, 0, 1)});
  shown.mapView->highlightNode(up);
  EXPECT_EQ(MapViewDirectionsPathNodes::highLightNode(), nullptr);
  shown.mapView->changeMap(1);
  EXPECT_EQ(drawnNodes(), 3U);
  const auto disc = MapViewDirectionsPathNodes::highLightNode();
  ASSERT_NE(disc, nullptr);
  EXPECT_EQ(disc->position(), Vector3(200, 100, 5.1F));
  EXPECT_NE(disc->parent(), nullptr);
  shown.mapView->changeMap(0);
  EXPECT_EQ(disc->parent(), nullptr);
  EXPECT_EQ(MapViewDirectionsPathNodes::highLightNode(), disc);
  EXPECT_EQ(drawnNodes(), 3U);
  shown.mapView->clearPaths();
  EXPECT_FALSE(shown.mapView->currentPath);
  EXPECT_EQ(shown.mapView->currentHighlightNode, up);
}

TEST(MapViewDirections, BuildsASegmentOfThreeLayers) {
  ShownVenue shown;
  shown.mapView->drawPathSegment({100, 100, 9}, {100, 150, 1});
  const auto& groups = MapViewDirectionsPathNodes::nodes();
  ASSERT_EQ(groups.size(), 3U);
  EXPECT_FLOAT_EQ(groups[0]->position().z, 1);
  EXPECT_FLOAT_EQ(groups[1]->position().z, 1.1F);
  const auto strip = groups[1]->children();
  ASSERT_EQ(strip.size(), 3U);
  EXPECT_EQ(strip[1]->position(), Vector3(100, 150, 0));
  EXPECT_FLOAT_EQ(strip[1]->eulerAngles().x, pi / 2);
  EXPECT_FLOAT_EQ(strip[2]->eulerAngles().z, pi / 2);
  EXPECT_FALSE(strip[2]->castsShadow());
  const graphics::Box box = strip[2]->geometry()->boundingBox();
  EXPECT_EQ(box.min, Vector3(0, -3, -0.05F));
  EXPECT_EQ(box.max, Vector3(50, 3, 0.05F));
  EXPECT_EQ(strip[2]->geometry()->firstMaterial()->diffuse().contents,
            scene::Contents(shown.mapView->pathColor));

  const auto arrow = groups[2]->children();
  ASSERT_EQ(arrow.size(), 2U);
  EXPECT_FLOAT_EQ(arrow[0]->position().z, 0.01F);
  EXPECT_EQ(arrow[1]->children().size(), 2U);
}

TEST(MapViewDirections, ArrowsPointAndMoveTowardsTheEndOneImageARun) {
  ShownVenue shown;
  shown.mapView->drawPathSegmentArrow({0, 0, 0}, {20, 0, 0}, 6, 0);
  const auto ribbon = MapViewDirectionsPathNodes::nodes().back()->children().front();
  const auto material = ribbon->geometry()->firstMaterial();
  const auto begin = material->presentedDiffuse(10.0);
  // The image's upward direction is that of the segment. Its 20 units show four copies of the
  // image.
  EXPECT_NEAR(textureAt(begin, 1, 0).y - textureAt(begin, 0, 0).y, 4, 1e-5);
  EXPECT_NEAR(textureAt(begin, 1, 0).x - textureAt(begin, 0, 0).x, 0, 1e-5);
  // The content at u was farther back before: it has moved toward the end.
  const auto half = material->presentedDiffuse(20.0);
  EXPECT_NEAR(textureAt(half, 0, 0).y - textureAt(begin, 0, 0).y, -0.5, 1e-5);
  const auto later = material->presentedDiffuse(10.0 + 20.0 * 3 + 5.0);
  EXPECT_NEAR(textureAt(later, 0, 0).y - textureAt(begin, 0, 0).y, -0.25, 1e-4);
  EXPECT_EQ(material->animation("blah")->duration, 20.0);

  shown.mapView->drawPathSegmentArrow({5, 5, 0}, {5, 5, 0}, 6, 0);  // a segment without length
  const auto still = MapViewDirectionsPathNodes::nodes().back()->children().front();
  EXPECT_EQ(still->geometry()->firstMaterial()->animation("blah")->duration, 0.0);
}

TEST(MapViewDirections, AreSharedBetweenMapViews) {
  ShownVenue first;
  ShownVenue second;
  first.mapView->drawPathSegment({0, 0, 0}, {9, 0, 0});
  second.mapView->drawPathSegment({0, 0, 0}, {9, 0, 0});
  EXPECT_EQ(drawnNodes(), 6U);
  const auto group = MapViewDirectionsPathNodes::nodes().back();
  first.mapView->clearPaths();
  EXPECT_EQ(drawnNodes(), 0U);
  EXPECT_EQ(group->parent(), nullptr);
}

TEST(MapViewDirections, ClearsAndResetsTheHighlight) {
  ShownVenue shown;
  const auto node = shown.node(1, 2, 3);
  shown.mapView->highlightNode({node}, 0);
  const auto disc = MapViewDirectionsPathNodes::highLightNode();
  shown.mapView->sceneView->setScene(nullptr);
  shown.mapView->highlightNode(node);
  EXPECT_NE(MapViewDirectionsPathNodes::highLightNode(), disc) << "kept without a scene";
  MapViewDirectionsPathNodes::highLightNode() = disc;
  const auto particles = std::make_shared<scene::ParticleSystem>();
  disc->addParticleSystem(particles);
  shown.mapView->removeHighlightNode();
  EXPECT_EQ(particles->resetCount(), 1);
  EXPECT_EQ(disc->parent(), nullptr);
  EXPECT_DEATH(shown.mapView->highlightNode(NodeList(), 0), "Index out of range");
}

}  // namespace
}  // namespace orivanta::test
