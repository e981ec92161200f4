// The floor for the drawing benchmarks, with its light and its camera.
#pragma once

#include <memory>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::benchmarks {

/// 1,500 rooms with one material each, and 150,000 triangles.
struct SeenFloor {
  static constexpr int columns = 50;
  static constexpr int rows = 30;
  static constexpr int sides = 26;
  static constexpr graphics::Size pictureSize{1280, 800};

  std::shared_ptr<scene::Node> rooms = test::makeSyntheticFloor(columns, rows, sides);
  std::shared_ptr<scene::Scene> scene = scene::Scene::make();
  test::LightAndCamera rig = test::lightAndWatch(*scene, columns, rows);

  SeenFloor() { scene->rootNode()->addChild(rooms); }

  /// Turns slightly back and forth, so that every frame draws the same amount.
  void turnCamera() { turn(*rig.orbit); }
  void turnLight() { turn(*rig.sun); }
  void stayAsItIs() {}

  /// Turns the camera away from the floor.
  void lookAway() { rig.eye->setEulerAngles({3.0F, 0, 0}); }

 private:
  void turn(scene::Node& node) {
    auto angles = node.eulerAngles();
    angles.z = angles.z > 0 ? 0.0F : 0.02F;
    node.setEulerAngles(angles);
  }
};

}  // namespace orivanta::benchmarks
