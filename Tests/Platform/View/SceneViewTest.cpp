#include "Platform/View/SceneView.hpp"

#include <gtest/gtest.h>

#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Tests/Support/Latch.hpp"

namespace orivanta::view {
namespace {

// A square with sides of 2 units at the origin, seen from 10 units above.
std::shared_ptr<scene::Scene> squareSeenFromAbove() {
  const graphics::Point corners[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  auto scene = scene::Scene::make();
  scene->rootNode()->addChild(scene::Node::make(scene::makeExtrusion(corners, 0.1)));
  const auto eye = scene::Node::make();
  eye->setCamera(std::make_shared<scene::Camera>());
  eye->setPosition({0, 0, 10});
  scene->rootNode()->addChild(eye);
  return scene;
}

TEST(SceneView, SeesThroughTheFirstCamera) {
  SceneView view({{50, 50}, {400, 400}});
  EXPECT_FALSE(view.viewpoint().has_value());
  EXPECT_TRUE(view.hits({200, 200}).empty());
  EXPECT_EQ(view.project({0, 0, 0}), graphics::Vector3(0.0F));
  view.setScene(scene::Scene::make());
  EXPECT_FALSE(view.viewpoint().has_value());

  view.setScene(squareSeenFromAbove());
  const graphics::Vector3 middle = view.project({0, 0, 0});
  EXPECT_NEAR(middle.x, 200, 1e-3);
  EXPECT_NEAR(middle.y, 200, 1e-3);
  EXPECT_EQ(view.hits({200, 200}).size(), 1U);
  EXPECT_TRUE(view.hits({20, 20}).empty());
}

TEST(SceneView, PreparesNodesInTheBackground) {
  const auto floor = scene::Node::make();
  for (int i = 0; i < 2; ++i) floor->addChild(scene::Node::make(scene::makeCylinder(1, 1)));
  bool done = false;
  SceneView::prepare({floor, nullptr}, [&](bool success) { done = success; });
  EXPECT_FALSE(done);
  ASSERT_TRUE(foundation::mainQueue::wait(static_cast<double>(test::patience.count())));
  foundation::mainQueue::drain();
  EXPECT_TRUE(done);
  ASSERT_NE(floor->preparedBatch(), nullptr);
  EXPECT_EQ(floor->preparedBatch()->parts().size(), 2U);
}

TEST(SceneView, TellsTheOverlayAndTheParentOfFingers) {
  struct Overlay : sprite::Scene {
    Overlay() : Scene({100, 200}) {}
    void touchesBegan(std::span<const graphics::Point> points) override { told = points[0]; }
    graphics::Point told;
  };
  struct Parent : View {
    void touchesBegan(std::span<const Touch> touches) override { told = touches[0].position; }
    graphics::Point told;
  };
  const auto parent = std::make_shared<Parent>();
  const auto view = std::make_shared<SceneView>(graphics::Rect{{10, 20}, {400, 400}});
  const auto overlay = std::make_shared<Overlay>();
  parent->addSubview(view);
  view->setOverlayScene(overlay);
  const Touch touch{1, TouchPhase::began, {110, 120}, 0.0};
  view->touchesBegan({&touch, 1});
  EXPECT_EQ(overlay->told, (graphics::Point{25, 150}));
  EXPECT_EQ(parent->told, touch.position);
}

}  // namespace
}  // namespace orivanta::view
