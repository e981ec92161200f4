#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <glm/gtc/constants.hpp>
#include <random>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Tests/Support/Vectors.hpp"

namespace orivanta::scene {
namespace {

using graphics::Vector3;
using test::areNear;
using test::bytesOf;

/// A square with sides of 2 units around the origin of its node.
std::shared_ptr<Node> addSquare(Node& parent, Vector3 position) {
  static const auto square =
      makeExtrusion(std::vector<graphics::Point>{{-1, -1}, {1, -1}, {1, 1}, {-1, 1}}, 0);
  auto node = Node::make(square);
  node->setPosition(position);
  parent.addChild(node);
  return node;
}

class HitTest : public testing::Test {
 protected:
  std::vector<std::shared_ptr<Node>> nodesHit(const Ray& ray) const {
    std::vector<std::shared_ptr<Node>> nodes;
    for (const Hit& hit : hitTest(*scene_, ray)) nodes.push_back(hit.node);
    return nodes;
  }

  const std::shared_ptr<Scene> scene_ = Scene::make();
  Node& root_ = *scene_->rootNode();
  const Ray down_{{0, 0, 10}, {0, 0, -20}};
};

TEST_F(HitTest, ComesNearestFirstAndLastOfTheTreeFirstWhenLevel) {
  const auto low = addSquare(root_, {0, 0, -5});
  const auto levelFirst = addSquare(root_, {0.5F, 0, 0});
  const auto levelSecond = addSquare(root_, {0, 0.5F, 0});
  const auto high = addSquare(root_, {0, 0, 5});
  addSquare(root_, {3, 0, 8});
  EXPECT_THAT(nodesHit(down_), testing::ElementsAre(high, levelSecond, levelFirst, low));
  EXPECT_THAT(nodesHit({{0, 0, -10}, {0, 0, 8}}), testing::ElementsAre(low));
  EXPECT_THAT(nodesHit({{0, 0, 4}, {0, 0, -3}}), testing::IsEmpty());

  levelFirst->setHidden(true);
  const Hit second = hitTest(*scene_, down_).at(1);
  EXPECT_EQ(second.node, levelSecond);
  EXPECT_FLOAT_EQ(second.distance, 0.5F);
  EXPECT_TRUE(areNear(second.position, {0, 0, 0}));
}

TEST_F(HitTest, FollowsTheTransformsOfTheNodesAbove) {
  const auto group = Node::make();
  root_.addChild(group);
  group->setPosition({100, 0, 0});
  group->setEulerAngle(Axis::y, glm::half_pi<float>());  // squares now face x
  const auto square = addSquare(*group, {0, 0, 7});
  const auto hits = hitTest(*scene_, {{0, 0.9F, 0.9F}, {214, 0, 0}});
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits[0].node, square);
  EXPECT_NEAR(hits[0].distance, 0.5, 1e-6);
  EXPECT_TRUE(areNear(hits[0].position, {107, 0.9F, 0.9F}));
  EXPECT_THAT(nodesHit({{0, 1.1F, 0}, {214, 0, 0}}), testing::IsEmpty());
  group->setHidden(true);
  EXPECT_THAT(nodesHit({{0, 0, 0}, {214, 0, 0}}), testing::IsEmpty());
}

TEST_F(HitTest, TellsElementsApartAndTakesTheNearestTriangleOfEach) {
  // Triangles around the z axis at heights 0, 1 and 2; element 1 contains only the middle one.
  const GeometrySource source{
      .data = bytesOf<float>({-1, -1, 0,  2, -1, 0,  -1, 2, 0,  -1, -1, 1, -1, 2,
                              1,  2,  -1, 1, -1, -1, 2,  2, -1, 2,  -1, 2, 2}),
      .vectorCount = 9};
  root_.addChild(
      Node::make(Geometry::make({source}, {{bytesOf<std::uint16_t>({0, 1, 2, 6, 7, 8}), 2},
                                           {bytesOf<std::uint16_t>({3, 4, 5}), 2}})));
  const auto hits = hitTest(*scene_, down_);
  ASSERT_EQ(hits.size(), 2U);
  EXPECT_EQ(hits[0].geometryIndex, 0U);
  EXPECT_TRUE(areNear(hits[0].position, {0, 0, 2}));
  EXPECT_EQ(hits[1].geometryIndex, 1U);
  EXPECT_TRUE(areNear(hits[1].position, {0, 0, 1}));
}

TEST_F(HitTest, PassesATriangleInsideItsBox) {
  // In the plane z = x; the bounding box extends to 4.
  const GeometrySource source{.data = bytesOf<float>({0, 0, 0, 4, 2, 4, 2, 4, 2}),
                              .vectorCount = 3};
  root_.addChild(Node::make(Geometry::make({source}, {{bytesOf<std::uint8_t>({0, 1, 2}), 1}})));
  const auto hits = [&](Vector3 from, float down) {
    return hitTest(*scene_, {from, {0, 0, -down}}).size();
  };
  EXPECT_EQ(hits({2, 2, 10}, 20), 1U);
  EXPECT_EQ(hits({3, 1, 10}, 20), 0U) << "beyond the first edge";
  EXPECT_EQ(hits({3.8F, 3.8F, 10}, 20), 0U) << "beyond the second edge";
  EXPECT_EQ(hits({1, 3, 10}, 20), 0U) << "beyond the third edge";
  EXPECT_EQ(hits({2, 2, 10}, 7), 0U) << "ends above";
  EXPECT_EQ(hits({2, 2, 1}, 20), 0U) << "begins below";
}

TEST_F(HitTest, NoRaySlipsBetweenTwoTriangles) {
  // Multiples of 2^-20, so that each ray meets the diagonal of the square exactly.
  std::mt19937 random(1);
  const auto number = [&] { return std::ldexp(static_cast<float>(random() % (1U << 21)), -20); };
  const double side = std::ldexp((1 << 21) + 3, -20);
  root_.addChild(Node::make(
      makeExtrusion(std::vector<graphics::Point>{{0, 0}, {side, 0}, {side, side}, {0, side}}, 0)));
  for (int i = 0; i < 1000; ++i) {
    const float onDiagonal = number();
    const Vector3 back(number(), number(), number() + 1);
    const Ray ray{Vector3(onDiagonal, onDiagonal, 0) + back, back * -2.0F};
    ASSERT_EQ(nodesHit(ray).size(), 1U) << i;
  }
}

}  // namespace
}  // namespace orivanta::scene
