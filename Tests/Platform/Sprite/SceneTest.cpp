#include "Platform/Sprite/Scene.hpp"

#include <gtest/gtest.h>

namespace orivanta::sprite {
namespace {

using graphics::Point;
using graphics::Rect;
using graphics::Size;

std::shared_ptr<SpriteNode> square(const char* name, double x, double y, double z = 0.0) {
  auto node = SpriteNode::make(nullptr, Size{10, 10});
  node->setName(name);
  node->setPosition({x, y});
  node->setZPosition(z);
  return node;
}

TEST(SpriteScene, FindsTheForemostNode) {
  const auto scene = Scene::make({100, 100});
  const auto lower = square("lower", 20, 20);
  const auto upper = square("upper", 22, 22);
  const auto raised = square("raised", 24, 24, 1);
  const auto sunk = square("sunk", 0, 8, -1);  // a child of the raised one, level with the others
  const auto hidden = square("hidden", 80, 80);
  const auto below = square("below hidden", 0, 0);
  const auto place = Node::make();
  const auto label = LabelNode::make("Hall");
  label->setName("label");
  place->setPosition({50, 50});
  for (const auto& node : {raised, lower, upper, hidden}) scene->addChild(node);
  scene->addChild(place);
  raised->addChild(sunk);
  hidden->addChild(below);
  hidden->setHidden(true);
  place->addChild(label);

  struct Case {
    Point point;
    const char* expected;
  };
  const Case cases[] = {
      {{16, 16}, "lower"}, {{18, 18}, "upper"}, {{19, 19}, "raised"}, {{24, 28}, "raised"},
      {{24, 34}, "sunk"},  {{50, 50}, "label"}, {{80, 80}, nullptr},  {{90, 10}, nullptr},
      {{15, 15}, "lower"}, {{29, 36}, nullptr}, {{500, 50}, nullptr}, {{26, 28}, "raised"},
  };
  for (const Case& each : cases) {
    const auto found = scene->nodeAt(each.point);
    const std::string name = found == scene ? "scene" : found->name().value_or("?");
    EXPECT_EQ(name, each.expected == nullptr ? "scene" : each.expected)
        << each.point.x << ' ' << each.point.y;
  }
  raised->setZPosition(0);
  EXPECT_EQ(scene->nodeAt({19, 19})->name(), "upper") << "of equals the later one";
  place->setHidden(true);
  EXPECT_EQ(scene->nodeAt({50, 50}), scene);
}

TEST(SpriteNode, OwnsItsChildrenAndNotItsParent) {
  auto parent = Node::make();
  const auto other = Node::make();
  const auto child = Node::make();
  parent->addChild(child);
  parent->addChild(child);
  EXPECT_EQ(parent->children(), std::vector{child});
  other->addChild(child);
  EXPECT_TRUE(parent->children().empty());
  EXPECT_EQ(child->parent(), other);
  parent->addChild(other->children()[0]);
  parent = nullptr;
  EXPECT_FALSE(child->hasParent());
  other->addChild(Node::make());
  other->children()[0]->removeFromParent();
  EXPECT_TRUE(other->children().empty());
  other->addChild(child);
  EXPECT_DEATH(child->addChild(other), "fatal error");
  EXPECT_DEATH(child->addChild(child), "fatal error");
  EXPECT_DEATH(child->addChild(nullptr), "fatal error");
}

TEST(SpriteNode, CoversItsPictureAroundItsPosition) {
  const auto picture = graphics::Image::make(8, 4, std::vector<std::uint8_t>(128), 2.0);
  const auto sprite = SpriteNode::make(picture);
  sprite->setPosition({10, 20});
  EXPECT_EQ(sprite->frame(), (Rect{{8, 19}, {4, 2}}));
  sprite->setSize({6, -1});
  EXPECT_EQ(sprite->frame(), (Rect{{7, 20}, {6, 0}}));
}

TEST(LabelNode, KeepsItsPictureUntilItChanges) {
  const auto label = LabelNode::make("Hall");
  const auto first = label->image(2.0);
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(label->image(2.0), first);
  EXPECT_EQ(label->frame().size, first->size());
  EXPECT_NE(label->image(1.0), first);
  const double width = label->frame().size.width;
  label->setText("Hall Hall");
  EXPECT_GT(label->frame().size.width, 1.5 * width);
  label->setText(" ");
  EXPECT_EQ(label->image(1.0), nullptr);
  EXPECT_EQ(label->frame(), Rect{});
}

}  // namespace
}  // namespace orivanta::sprite
