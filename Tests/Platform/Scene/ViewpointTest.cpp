#include <gtest/gtest.h>

#include <cmath>
#include <glm/gtc/constants.hpp>
#include <glm/trigonometric.hpp>

#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Tests/Support/Vectors.hpp"

namespace orivanta::scene {
namespace {

using graphics::Vector3;
using test::areNear;

std::shared_ptr<Node> makeCameraNode(double fov = 40) {
  auto node = Node::make();
  node->setCamera(std::make_shared<Camera>(Camera{fov, fov, 40, 5000}));
  return node;
}

TEST(Viewpoint, AFloorSeenFromItsFramingDistanceFillsTheView) {
  constexpr float side = 600;
  const auto camera = makeCameraNode();
  camera->setPosition(
      {50, 20, static_cast<float>(side / (2 * std::tan(glm::radians(20.0))))});  // 824.2
  const Viewpoint square(*camera, {500, 500});
  const auto xy = [](Vector3 point) { return Vector3(point.x, point.y, 0); };
  EXPECT_TRUE(areNear(xy(square.project({50, 20, 0})), {250, 250, 0}, 1e-3F));
  EXPECT_TRUE(areNear(xy(square.project({-250, 320, 0})), {0, 0, 0}, 1e-3F));
  EXPECT_TRUE(areNear(xy(square.project({350, -280, 0})), {500, 500, 0}, 1e-3F));

  // A wider view shows more of the floor without distorting it.
  const Viewpoint wide(*camera, {800, 400});
  EXPECT_TRUE(areNear(xy(wide.project({-250, 320, 0})), {200, 0, 0}, 1e-3F));
  const Viewpoint high(*camera, {400, 800});
  EXPECT_TRUE(areNear(xy(high.project({-250, 320, 0})), {0, 200, 0}, 1e-3F));
}

TEST(Viewpoint, EachSideHasItsOwnFieldOfView) {
  const Camera camera{90, 60, 1, 10};
  const float tan30 = std::tan(glm::radians(30.0F));
  const auto wide = camera.projection({300, 200});
  EXPECT_FLOAT_EQ(wide[1][1], 1 / tan30);
  EXPECT_FLOAT_EQ(wide[0][0], 1 / tan30 / 1.5F);
  const auto high = camera.projection({200, 400});
  EXPECT_FLOAT_EQ(high[0][0], 1);
  EXPECT_FLOAT_EQ(high[1][1], 0.5F);
  EXPECT_EQ(camera.projection({0, 400}), camera.projection({1, 1}));
}

TEST(Viewpoint, DepthRunsFromTheNearPlaneToTheFarOne) {
  const Viewpoint viewpoint(*makeCameraNode(), {100, 100});
  EXPECT_NEAR(viewpoint.project({0, 0, -40}).z, 0, 1e-6);
  EXPECT_NEAR(viewpoint.project({0, 0, -5000}).z, 1, 1e-6);
  EXPECT_GT(viewpoint.project({0, 0, 100}).z, 1);
}

TEST(Viewpoint, RaysGoThroughThePointsThatProjectOntoThem) {
  const auto orbit = Node::make();
  const auto camera = makeCameraNode(65);
  orbit->addChild(camera);
  orbit->setPosition({300, -200, 10});
  orbit->setEulerAngles({0.9F, 0.2F, 2.5F});
  camera->setPosition({0, 0, 700});
  const Viewpoint viewpoint(*camera, {640, 360});
  for (const graphics::Point point : {graphics::Point{0, 0}, {640, 0}, {320, 180}, {17, 301.5}}) {
    const Ray ray = viewpoint.ray(point);
    for (const float share : {0.0F, 0.01F, 0.2F, 1.0F}) {
      const Vector3 shown = viewpoint.project(ray.origin + ray.direction * share);
      EXPECT_NEAR(shown.x, point.x, 0.01);
      EXPECT_NEAR(shown.y, point.y, 0.01);
    }
    EXPECT_NEAR(viewpoint.project(ray.origin).z, 0, 1e-4);
    EXPECT_NEAR(viewpoint.project(ray.origin + ray.direction).z, 1, 1e-4);
  }
}

TEST(Viewpoint, AnEmptyViewLooksStraightAhead) {
  const Viewpoint viewpoint(*makeCameraNode(), {0, 0});
  EXPECT_TRUE(areNear(viewpoint.ray({5, 5}).origin, {0, 0, -40}));
  EXPECT_EQ(viewpoint.project({3, 3, -100}).x, 0);
}

TEST(Viewpoint, ThePointOfViewIsTheFirstNodeWithACamera) {
  const auto scene = Scene::make();
  EXPECT_EQ(findPointOfView(*scene), nullptr);
  const auto orbit = Node::make();
  const auto first = makeCameraNode();
  scene->rootNode()->addChild(orbit);
  scene->rootNode()->addChild(makeCameraNode());
  orbit->addChild(first);
  EXPECT_EQ(findPointOfView(*scene), first);
  EXPECT_DEATH(Viewpoint(*orbit, {1, 1}), "needs a camera");
}

}  // namespace
}  // namespace orivanta::scene
