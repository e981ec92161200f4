#include "Platform/View/View.hpp"

#include <gtest/gtest.h>

#include "Platform/View/ActivityIndicatorView.hpp"
#include "Platform/View/Canvas.hpp"
#include "Platform/View/PanGestureRecognizer.hpp"

namespace orivanta::view {
namespace {

using graphics::Point;
using graphics::Rect;

// A root of 100 x 100 with two children that overlap from 40 to 60; one of them has a child.
struct Tree {
  std::shared_ptr<View> root = std::make_shared<View>(Rect{{7, 7}, {100, 100}});
  std::shared_ptr<View> back = std::make_shared<View>(Rect{{0, 0}, {60, 60}});
  std::shared_ptr<View> front = std::make_shared<View>(Rect{{40, 40}, {60, 60}});
  std::shared_ptr<View> inner = std::make_shared<View>(Rect{{10, 10}, {100, 10}});

  Tree() {
    root->addSubview(back);
    root->addSubview(front);
    front->addSubview(inner);
  }
};

TEST(View, FindsTheForemostViewThatTakesTouches) {
  struct Case {
    const char* what;
    void (*change)(Tree& tree);
    Point point;
    std::shared_ptr<View> Tree::*expected;
  };
  const auto nothing = [](Tree&) {};
  const Case cases[] = {
      {"the root alone", nothing, {90, 10}, &Tree::root},
      {"upper left edges belong to it", nothing, {40, 40}, &Tree::front},
      {"lower right edges do not", nothing, {60, 30}, &Tree::root},
      {"a child of a child", nothing, {55, 55}, &Tree::inner},
      {"brought to the front",
       [](Tree& t) { t.root->bringSubviewToFront(*t.back); },
       {55, 55},
       &Tree::back},
      {"hidden", [](Tree& t) { t.front->setHidden(true); }, {55, 55}, &Tree::back},
      {"transparent", [](Tree& t) { t.front->setAlpha(0.009); }, {55, 55}, &Tree::back},
      {"lets touches through",
       [](Tree& t) { t.front->setUserInteractionEnabled(false); },
       {55, 55},
       &Tree::back},
      {"moved to another parent",
       [](Tree& t) { t.back->addSubview(t.inner); },
       {15, 15},
       &Tree::inner},
  };
  for (const Case& each : cases) {
    Tree tree;
    each.change(tree);
    EXPECT_EQ(tree.root->viewAt(each.point), tree.*each.expected) << each.what;
  }
  EXPECT_EQ(Tree().root->viewAt({100, 50}), nullptr);
}

TEST(View, ConvertsPointsAcrossTheTree) {
  const Tree tree;
  EXPECT_EQ(tree.inner->convert({1, 2}, *tree.root), (Point{51, 52}));
  EXPECT_EQ(tree.back->convert({1, 2}, *tree.inner), (Point{-49, -48}));
  EXPECT_EQ(&topmostView(*tree.inner), tree.root.get());
}

TEST(View, ChildrenAndRecognizersOutliveIt) {
  Tree tree;
  const auto pan = std::make_shared<PanGestureRecognizer>();
  tree.front->addGestureRecognizer(pan);
  tree.front->removeFromSuperview();
  EXPECT_EQ(tree.root->subviews(), std::vector{tree.back});
  tree.front = nullptr;
  EXPECT_EQ(tree.inner->superview(), nullptr);
  EXPECT_EQ(pan->view(), nullptr);
  tree.back->addGestureRecognizer(pan);
  tree.root->addGestureRecognizer(pan);
  EXPECT_EQ(pan->view(), tree.root.get());
  EXPECT_TRUE(tree.back->gestureRecognizers().empty());
}

TEST(View, RefusesChildrenThatAreNone) {
  Tree tree;
  EXPECT_DEATH(tree.root->addSubview(nullptr), "fatal error");
  EXPECT_DEATH(tree.root->addSubview(tree.root), "fatal error");
  EXPECT_DEATH(tree.inner->addSubview(tree.root), "fatal error");
}

TEST(View, TakesItsFrameFromAnArchive) {
  const View view(Coder({{"x", 1.0}, {"width", 30.0}, {"height", -4.0}}));
  EXPECT_EQ(view.frame(), (Rect{{1, 0}, {30, 0}}));
}

// Records what is drawn.
struct RecordingCanvas : Canvas {
  double now = 0.0;
  std::vector<Rect> fills;
  std::vector<Rect> pictures;
  std::shared_ptr<const graphics::Image> picture;
  double turn = 0.0;

  double time() const override { return now; }
  double scale() const override { return 2.0; }
  void fill(const Rect& rect, const graphics::Color&, double) override { fills.push_back(rect); }
  void draw(const std::shared_ptr<const graphics::Image>& image, const Rect& rect, double,
            double angle) override {
    pictures.push_back(rect);
    picture = image;
    turn = angle;
  }
  void draw(SceneView&, const Rect&) override {}
};

TEST(ActivityIndicatorView, TurnsInStepsOverItsBackgroundWhileAnimating) {
  const auto parent = std::make_shared<View>(Rect{{}, {100, 100}});
  const auto wheel = std::make_shared<ActivityIndicatorView>();
  parent->addSubview(wheel);
  wheel->setStyle(ActivityIndicatorStyle::gray);
  EXPECT_EQ(wheel->bounds().size, (graphics::Size{20, 20}));
  wheel->setFrame({{10, 10}, {60, 50}});
  wheel->setColor({1, 0, 0, 0.5F});
  wheel->setBackgroundColor(graphics::colors::black);
  RecordingCanvas canvas;
  wheel->draw(canvas);
  EXPECT_TRUE(canvas.fills.empty());
  EXPECT_FALSE(parent->isAnimating());

  wheel->startAnimating();
  EXPECT_TRUE(parent->isAnimating());
  canvas.now = 100 + 2.5 / 12;
  wheel->draw(canvas);
  EXPECT_EQ(canvas.fills, std::vector{wheel->bounds()});
  EXPECT_EQ(canvas.pictures, (std::vector{Rect{{20, 15}, {20, 20}}}));
  EXPECT_NEAR(canvas.turn, 2 * 3.14159265358979 / 6, 1e-9) << "1202 steps, 2 beyond whole turns";
  // The middle of the top spoke is opaque, that of the bottom spoke more transparent.
  const auto alpha = [&](std::size_t y) { return canvas.picture->pixels()[4 * (40 * y + 19) + 3]; };
  EXPECT_EQ(alpha(5), 128);
  EXPECT_NEAR(alpha(34), 75, 1);

  const auto before = canvas.picture;
  wheel->draw(canvas);
  EXPECT_EQ(canvas.picture, before) << "made once";
  wheel->setHidden(true);
  EXPECT_FALSE(parent->isAnimating());
}

}  // namespace
}  // namespace orivanta::view
