// How a map view builds its scene and switches floors.
#include <fmt/format.h>

#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Styled/StyledMap.hpp"
#include "Source/UI/Parts/MapViewParts.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;
using scene::Axis;

namespace {

constexpr double farPlane = 5000;  // scene units

// Creates the ground of the scene with its material. It is not attached to a node.
void makeGround() {
  scene::makeFloor()->setMaterials({scene::Material::make(graphics::colors::white)});
}

// Adds the gesture recognizers to the scene view and returns them.
std::vector<std::shared_ptr<view::GestureRecognizer>> addRecognizers(MapView& view) {
  std::vector<std::shared_ptr<view::GestureRecognizer>> added;
  const auto add = [&]<class Recognizer>(std::shared_ptr<Recognizer> recognizer, std::string action,
                                         void (MapView::*handler)(const Recognizer&)) {
    recognizer->addTarget(std::move(action), [&view, handler](view::GestureRecognizer& sender) {
      (view.*handler)(static_cast<const Recognizer&>(sender));
    });
    view.sceneView->addGestureRecognizer(recognizer);
    added.push_back(std::move(recognizer));
  };
  const auto pan = [](std::size_t touches) {
    auto recognizer = std::make_shared<view::PanGestureRecognizer>();
    recognizer->minimumNumberOfTouches = touches;
    recognizer->maximumNumberOfTouches = touches;
    return recognizer;
  };
  add(std::make_shared<view::TapGestureRecognizer>(), "sceneTapped:", &MapView::sceneTapped);
  add(pan(2), "handleTwoFingerPanGesture:", &MapView::handleTwoFingerPanGesture);
  add(pan(1), "handleOneFingerPanGesture:", &MapView::handleOneFingerPanGesture);
  add(std::make_shared<view::PinchGestureRecognizer>(),
      "handlePinchGesture:", &MapView::handlePinchGesture);
  add(std::make_shared<view::RotationGestureRecognizer>(),
      "handleRotationGesture:", &MapView::handleRotationGesture);
  return added;
}

struct LightNodes {
  std::shared_ptr<scene::Node> ambient;
  std::shared_ptr<scene::Node> sun;  // casts shadows
};

LightNodes addLights(scene::Node& root) {
  auto ambient = std::make_shared<scene::Light>();
  ambient->type = scene::LightType::ambient;
  ambient->color = graphics::colors::darkGray;
  auto light = scene::Node::make();
  light->setLight(std::move(ambient));
  light->setPosition({0, -200, -200});

  auto sun = std::make_shared<scene::Light>();
  sun->type = scene::LightType::spot;
  sun->type = scene::LightType::directional;
  sun->castsShadow = true;
  sun->spotInnerAngle = 120;
  sun->spotOuterAngle = 120;
  sun->zFar = farPlane;
  const auto sunNode = scene::Node::make();
  sunNode->setLight(std::move(sun));
  sunNode->setPosition({-50, 20, 0});
  sunNode->setEulerAngle(Axis::x, 45);  // radians: 58 degrees after seven turns
  root.addChild(sunNode);
  root.addChild(light);
  return {light, sunNode};
}

}  // namespace

void MapView::startScene() {
  const graphics::Transaction transaction;
  unwrap(sceneView).setScene(scene::Scene::make());
  parts_->currentMap = nullptr;  // no floor is in the new scene
  const auto& maps = unwrap(unwrap(venue).maps);
  if (maps.empty()) return diagnostic("No maps at all!");
  if (!maps.front()->mapObject) return diagnostic("No valid map!");
  startScene(maps.front());
}

void MapView::startScene(const std::shared_ptr<Map>& map) {
  scene::Node& root = *sceneView->scene()->rootNode();
  parts_->currentMap = map;
  root.addChild(map->mapObject);
  for (const auto& former : parts_->recognizers) sceneView->removeGestureRecognizer(*former);
  parts_->recognizers = addRecognizers(*this);
  makeGround();
  parts_->camera.stop();
  parts_->rig.build(root);
  const LightNodes lights = addLights(root);
  light = lights.ambient;
  parts_->sun = lights.sun;
  if (StyledMap* const style = styled()) {
    style->sceneStarted(lights.sun);
    style->addFloor(*map);
  }
}

void MapView::changeMap(int index) {
  const auto& maps = unwrap(unwrap(venue).maps);
  if (index >= 0 && static_cast<std::size_t>(index) < maps.size())
    changeMap(maps[static_cast<std::size_t>(index)]);
}

void MapView::changeMap(const std::shared_ptr<Map>& map) {
  const auto& maps = unwrap(unwrap(venue).maps);
  if (parts_->currentMap && unwrap(map) == *parts_->currentMap)
    return diagnostic(fmt::format("Skipping map switch. At: {}, target: {}",
                                  parts_->currentMap->name, map->name));
  if (!unwrap(map).mapObject) return diagnostic("No valid map!");

  const graphics::Transaction transaction;
  const auto scene = unwrap(sceneView).scene();
  const auto root = unwrap(scene).rootNode();
  for (const auto& other : maps)
    if (other->mapObject) other->mapObject->removeFromParent();
  if (!parts_->currentMap) {
    startScene(map);
  } else {
    parts_->camera.stop();  // the glide may end outside this floor
    const auto former = std::exchange(parts_->currentMap, map);
    root->insertChild(map->mapObject, 0);
    parts_->rig.floorChanged();
    if (StyledMap* const style = styled()) {
      style->floorChanged(former);
      style->addFloor(*map);
    }
  }
  drawCurrentPath();
  if (currentHighlightNode) highlightNode(currentHighlightNode);
}

}  // namespace orivanta
