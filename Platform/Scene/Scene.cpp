#include "Platform/Scene/Scene.hpp"

#include "Platform/Scene/Walk.hpp"

namespace orivanta::scene {

Scene::Scene() : rootNode_(Node::make()) {}

std::shared_ptr<Scene> Scene::make() { return std::shared_ptr<Scene>(new Scene); }

std::shared_ptr<Node> findPointOfView(const Scene& scene) {
  std::shared_ptr<Node> found;
  walk(*scene.rootNode(), graphics::Matrix4(1.0F), [&](Node& node, const graphics::Matrix4&) {
    if (!found && &node != scene.rootNode().get() && node.camera()) found = node.shared_from_this();
    return !found;
  });
  return found;
}

}  // namespace orivanta::scene
