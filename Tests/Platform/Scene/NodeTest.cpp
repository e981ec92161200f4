#include "Platform/Scene/Node.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <glm/gtc/constants.hpp>
#include <thread>

#include "Platform/Scene/Shapes.hpp"
#include "Tests/Support/Vectors.hpp"

namespace orivanta::scene {
namespace {

using graphics::Vector3;
using graphics::Vector4;
using test::areNear;
using testing::ElementsAre;

constexpr float quarter = glm::half_pi<float>();

std::shared_ptr<Node> named(const char* name) {
  auto node = Node::make();
  node->setName(name);
  return node;
}

Vector3 inWorld(const Node& node, const Vector3& point) {
  return Vector3(node.worldTransform() * Vector4(point, 1));
}

TEST(Node, TurnsAboutXThenYThenZAndMovesThen) {
  const auto node = Node::make();
  node->setPosition({10, 20, 30});
  node->setEulerAngles({quarter, quarter, 0});
  // About x: y becomes z. About y: z becomes x.
  EXPECT_TRUE(areNear(inWorld(*node, {0, 1, 0}), {11, 20, 30}));
  node->setEulerAngle(Axis::z, quarter);  // x becomes y
  EXPECT_TRUE(areNear(inWorld(*node, {0, 1, 0}), {10, 21, 30}));

  const auto child = Node::make();
  node->addChild(child);
  child->setPosition(Axis::y, 5);
  child->setEulerAngle(Axis::x, quarter);  // the child's z becomes -y
  EXPECT_TRUE(areNear(inWorld(*child, {0, 0, 1}), {10, 24, 30}));
}

TEST(Node, MovesBetweenParentsAndPlaces) {
  const auto parent = Node::make();
  const auto other = Node::make();
  const auto a = Node::make();
  const auto b = Node::make();
  const auto c = Node::make();
  for (const auto& child : {a, b, c}) parent->addChild(child);
  parent->insertChild(a, 1);
  EXPECT_THAT(parent->children(), ElementsAre(b, a, c));
  parent->addChild(b);
  EXPECT_THAT(parent->children(), ElementsAre(a, c, b));
  other->insertChild(c, 99);
  other->insertChild(a, 0);
  EXPECT_THAT(parent->children(), ElementsAre(b));
  EXPECT_THAT(other->children(), ElementsAre(a, c));
  EXPECT_EQ(a->parent(), other);
  b->removeFromParent();
  b->removeFromParent();
  EXPECT_TRUE(parent->children().empty());
  EXPECT_EQ(b->parent(), nullptr);
}

TEST(Node, LeavesItsParentWithoutAnotherHandle) {
  const auto parent = Node::make();
  parent->addChild(Node::make());
  Node& child = *parent->children().front();
  child.removeFromParent();
  EXPECT_TRUE(parent->children().empty());
}

TEST(Node, ChildrenOutliveTheirParent) {
  const auto child = Node::make();
  Node::make()->addChild(child);
  EXPECT_EQ(child->parent(), nullptr);
  EXPECT_TRUE(areNear(inWorld(*child, {1, 2, 3}), {1, 2, 3}));
}

TEST(Node, ALongChainTakesNoStack) {
  auto top = Node::make();
  std::weak_ptr<Node> bottom;
  for (auto [i, node] = std::pair(0, top); i < 100'000; ++i) {
    const auto child = Node::make();
    node->addChild(child);
    bottom = node = child;
  }
  bottom.lock()->setGeometry(
      makeExtrusion(std::vector<graphics::Point>{{0, 0}, {2, 0}, {2, 2}}, 2));
  EXPECT_EQ(top->boundingBox().max, Vector3(2, 2, 1));
  EXPECT_EQ(top->childNode("none"), nullptr);
  top.reset();
  EXPECT_TRUE(bottom.expired());
}

TEST(Node, ThreadsMoveWhatOthersWalkThrough) {
  const auto root = Node::make();
  const auto wanderer = Node::make(makeFloor());
  std::atomic<int> moves = 0;  // does not synchronize the threads
  std::atomic<int> walks = 0;
  const auto repeat = [&](std::atomic<int>& count, const auto& action) {
    constexpr auto relaxed = std::memory_order_relaxed;
    for (; moves.load(relaxed) < 1000 || walks.load(relaxed) < 1000; count.fetch_add(1, relaxed))
      action();
  };
  std::thread mover(repeat, std::ref(moves), [&] {
    const auto parent = Node::make();  // destroyed at the end of each round
    root->addChild(parent);
    parent->addChild(wanderer);
    wanderer->setPosition(Axis::x, 1);
    parent->removeFromParent();
  });
  repeat(walks, [&] {
    EXPECT_LE(root->boundingBox().max.x, 10'001);
    wanderer->worldTransform();
    wanderer->parent();
  });
  mover.join();
  EXPECT_TRUE(root->children().empty());
  EXPECT_EQ(wanderer->parent(), nullptr);
}

TEST(Node, FindsByNameOnTheNearestLevelAndByTestInOrder) {
  const auto root = named("x");
  const auto a = named("a");
  const auto deep = named("x");
  const auto shallow = named("x");
  root->addChild(a);
  a->addChild(deep);
  root->addChild(shallow);
  root->addChild(Node::make());
  EXPECT_EQ(root->childNode("x"), shallow);
  EXPECT_EQ(root->childNode(""), nullptr);
  const auto isNamed = [](const Node& node) { return node.name().has_value(); };
  EXPECT_THAT(root->childNodes(isNamed), ElementsAre(a, deep, shallow));
}

TEST(Node, TheBoundingBoxHoldsTurnedChildrenInItsOwnSpace) {
  const auto slab = makeExtrusion(std::vector<graphics::Point>{{0, 0}, {4, 0}, {4, 2}, {0, 2}}, 6);
  const auto node = Node::make();
  EXPECT_TRUE(node->boundingBox().isEmpty());
  node->setPosition({100, 100, 100});
  const auto child = Node::make(slab);
  const auto grandchild = Node::make(slab);
  node->addChild(child);
  child->setPosition({10, 0, 0});
  child->setEulerAngle(Axis::z, quarter);
  EXPECT_TRUE(areNear(node->boundingBox().min, {8, 0, -3}));
  EXPECT_TRUE(areNear(node->boundingBox().max, {10, 4, 3}));
  child->addChild(grandchild);
  grandchild->setPosition({5, 0, 0});  // the child's x is the parent's y
  EXPECT_TRUE(areNear(node->boundingBox().max, {10, 9, 3}));
}

TEST(NodeDeathTest, ANodeCannotStandBelowItself) {
  const auto top = Node::make();
  const auto middle = Node::make();
  const auto bottom = Node::make();
  top->addChild(middle);
  middle->addChild(bottom);
  EXPECT_DEATH(bottom->addChild(top), "cannot be a child of itself");
  EXPECT_DEATH(top->insertChild(top, 0), "cannot be a child of itself");
  EXPECT_DEATH(top->addChild(nullptr), "null node");
}

}  // namespace
}  // namespace orivanta::scene
