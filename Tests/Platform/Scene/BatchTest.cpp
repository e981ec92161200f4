#include "Platform/Scene/Batch.hpp"

#include <gtest/gtest.h>

#include <glm/gtc/constants.hpp>

#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Node.hpp"
#include "Tests/Support/Vectors.hpp"

namespace orivanta::scene {
namespace {

using graphics::Vector3;
using test::areNear;
using test::bytesOf;

class BatchTest : public testing::Test {
 protected:
  /// Two elements that share the vertex (2, 0, 0).
  static std::shared_ptr<Geometry> makePair() {
    return Geometry::make(
        bytesOf<float>({9, 9, 9, 0, 0, 0, 0, 0,  //
                        0, 0, 0, 1, 0, 0, 0, 0,  //
                        2, 0, 0, 1, 0, 0, 1, 0,  //
                        2, 2, 0, 1, 0, 0, 1, 1,  //
                        4, 0, 0, 1, 0, 0, 0, 1}),
        {{bytesOf<std::uint16_t>({1, 2, 3, 1, 3, 2}), 2}, {bytesOf<std::uint8_t>({2, 4, 3}), 1}});
  }

  /// A triangle without normals and texture coordinates.
  static std::shared_ptr<Geometry> makeBare() {
    const GeometrySource source{.data = bytesOf<float>({0, 0, 5, 1, 0, 5, 0, 1, 5}),
                                .vectorCount = 3};
    return Geometry::make({source}, {{bytesOf<std::uint8_t>({0, 1, 2}), 1}, {}});
  }

  BatchTest() {
    second_->setPosition({10, 0, 0});
    second_->setEulerAngle(Axis::z, glm::half_pi<float>());
    const auto group = Node::make(makeBare());
    group->addChild(Node::make(makeBare()));
    for (const auto& child : {first_, group, second_, Node::make()}) parent_->addChild(child);
  }

  const std::shared_ptr<Node> parent_ = Node::make();
  const std::shared_ptr<Node> first_ = Node::make(makeBare());
  const std::shared_ptr<Node> second_ = Node::make(makePair());
};

TEST_F(BatchTest, VerticesStandInTheParentsSpace) {
  const auto batch = Batch::make(*parent_);
  ASSERT_EQ(batch->vertices().size(), 9U);
  const auto vector = [](const float* numbers) {
    return Vector3(numbers[0], numbers[1], numbers[2]);
  };
  const Batch::Vertex& bare = batch->vertices()[1];
  EXPECT_EQ(vector(bare.position), Vector3(1, 0, 5));
  EXPECT_EQ(vector(bare.normal), Vector3(0));
  EXPECT_EQ(bare.textureCoordinate[0], 0);
  const Batch::Vertex& turned = batch->vertices()[5];  // (2, 2, 0) in the child's space
  EXPECT_TRUE(areNear(vector(turned.position), {8, 2, 0}));
  EXPECT_TRUE(areNear(vector(turned.normal), {0, 1, 0}));
  EXPECT_EQ(turned.textureCoordinate[1], 1);
  for (const auto& [vertex, part] : {std::pair(2, 0U), {3, 1U}, {5, 1U}, {6, 2U}, {8, 2U}})
    EXPECT_EQ(batch->vertices()[static_cast<std::size_t>(vertex)].part, part) << vertex;
}

TEST_F(BatchTest, MatchesUntilAMergedChildChanges) {
  const auto batch = Batch::make(*parent_);
  parent_->addChild(Node::make());
  first_->setHidden(true);
  EXPECT_TRUE(batch->matches(*parent_));
  const std::vector<std::pair<const char*, std::function<void(bool)>>> changes{
      {"position", [&](bool back) { first_->setPosition(Axis::z, back ? 0 : 1); }},
      {"angle", [&](bool back) { first_->setEulerAngle(Axis::x, back ? 0 : 1); }},
      {"order", [&](bool back) { parent_->insertChild(first_, back ? 0 : 9); }},
      {"fewer",
       [&](bool back) { back ? parent_->addChild(second_) : second_->removeFromParent(); }},
      {"geometry", [&, geometry = first_->geometry()](
                       bool back) { first_->setGeometry(back ? geometry : makeBare()); }},
      {"below",
       [&](bool back) {
         back ? first_->children().front()->removeFromParent() : first_->addChild(Node::make());
       }},
      {"more", [&](bool) { parent_->addChild(Node::make(makeBare())); }},
  };
  for (const auto& [what, change] : changes) {
    EXPECT_TRUE(batch->matches(*parent_)) << what;
    change(false);
    EXPECT_FALSE(batch->matches(*parent_)) << what;
    change(true);
  }
}

TEST_F(BatchTest, CopiesShareTheArraysButNotTheNodes) {
  const auto batch = Batch::make(*parent_);
  const auto copy = Node::make();
  for (const auto& child : batch->children()) {
    copy->addChild(Node::make(child.geometry));
    copy->children().back()->setPosition(child.position);
    copy->children().back()->setEulerAngles(child.eulerAngles);
  }
  const auto adopted = batch->adopted(*copy);
  EXPECT_EQ(adopted->data(), batch->data());
  EXPECT_TRUE(adopted->matches(*copy));
  EXPECT_FALSE(adopted->matches(*parent_));
  EXPECT_EQ(adopted->parts()[1].node, copy->children()[1]);
  EXPECT_EQ(adopted->parts()[1].box.max, batch->parts()[1].box.max);
  copy->children()[0]->setPosition({1, 0, 0});
  EXPECT_EQ(batch->adopted(*copy), nullptr);
}

}  // namespace
}  // namespace orivanta::scene
