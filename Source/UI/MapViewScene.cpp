// How a map view builds its scene and switches floors.
#include <fmt/format.h>

#include <cmath>
#include <numbers>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/Map.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Printed.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;
using scene::Axis;

namespace {

constexpr double farPlane = 5000;
constexpr double nearPlane = 40;
constexpr float pi = std::numbers::pi_v<float>;

// The ground of the scene: it is made with its material, and belongs to no node.
void makeGround() {
  scene::makeFloor()->setMaterials({scene::Material::make(graphics::colors::white)});
}

// The distance at which a square of side `size` fills a field of view, a whole number.
float framingDistance(double size, double fov) {
  return static_cast<float>(std::round(size / (2 * std::tan(fov * std::numbers::pi / 180 / 2))));
}

}  // namespace

void MapView::startScene() {
  const graphics::Transaction transaction;
  unwrap(sceneView).setScene(scene::Scene::make());
  currentMap_ = nullptr;  // no floor is in the new scene
  const auto& maps = unwrap(unwrap(venue).maps);
  if (maps.empty()) return diagnostic("No maps at all!");
  if (!maps.front()->mapObject) return diagnostic("No valid map!");
  startScene(maps.front());
}

void MapView::startScene(const std::shared_ptr<Map>& map) {
  scene::Node& root = *sceneView->scene()->rootNode();
  currentMap_ = map;
  root.addChild(map->mapObject);
  addRecognizers();
  makeGround();
  addCamera(root);
  addLights(root);
}

void MapView::addRecognizers() {
  for (const auto& former : recognizers_) sceneView->removeGestureRecognizer(*former);
  recognizers_.clear();
  const auto add = [this]<class Recognizer>(std::shared_ptr<Recognizer> recognizer,
                                            std::string action,
                                            void (MapView::*handler)(const Recognizer&)) {
    recognizer->addTarget(std::move(action), [this, handler](view::GestureRecognizer& sender) {
      (this->*handler)(static_cast<const Recognizer&>(sender));
    });
    sceneView->addGestureRecognizer(recognizer);
    recognizers_.push_back(std::move(recognizer));
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
}

void MapView::addCamera(scene::Node& root) {
  const graphics::Box box = root.boundingBox();
  diagnostic(fmt::format("bounding box: min:{} max:{}", printed(box.min), printed(box.max)));
  const float width = box.max.x - box.min.x;
  const float height = box.max.y - box.min.y;
  cameraDistance = framingDistance(width > height ? width : height, fov);
  diagnostic(fmt::format("camera distance: {}", *cameraDistance));
  const float shiftX = box.max.x - width / 2;
  const float shiftY = box.max.y - height / 2;
  diagnostic(fmt::format("camera shiftX: {} shiftY: {}", shiftX, shiftY));

  auto camera = std::make_shared<scene::Camera>();
  camera->xFov = fov;
  camera->yFov = fov;
  camera->zFar = farPlane;
  camera->zNear = nearPlane;
  const auto cameraNode = scene::Node::make();
  cameraNode->setCamera(std::move(camera));
  cameraNode->setPosition({0, 0, *cameraDistance});
  cameraOrbit = scene::Node::make();
  cameraOrbit->setPosition(Axis::x, shiftX);
  cameraOrbit->setPosition(Axis::y, shiftY);
  cameraOrbit->addChild(cameraNode);
  root.addChild(cameraOrbit);

  labelsOrbit = scene::Node::make();
  labelsOrbit->setPosition(cameraOrbit->position());
  const auto labels = scene::Node::make();
  labels->setPosition(cameraNode->position());
  labelsOrbit->addChild(labels);
  labelsOrbit->setEulerAngle(Axis::y, -pi);
  labelsOrbit->setEulerAngle(Axis::x, -pi / 2);
  root.addChild(labelsOrbit);
}

void MapView::addLights(scene::Node& root) {
  auto ambient = std::make_shared<scene::Light>();
  ambient->type = scene::LightType::ambient;
  ambient->color = graphics::colors::darkGray;
  light = scene::Node::make();
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
}

void MapView::changeMap(int index) {
  const auto& maps = unwrap(unwrap(venue).maps);
  if (index >= 0 && static_cast<std::size_t>(index) < maps.size())
    changeMap(maps[static_cast<std::size_t>(index)]);
}

void MapView::changeMap(const std::shared_ptr<Map>& map) {
  const auto& maps = unwrap(unwrap(venue).maps);
  if (currentMap_ && unwrap(map) == *currentMap_)
    return diagnostic(
        fmt::format("Skipping map switch. At: {}, target: {}", currentMap_->name, map->name));
  if (!unwrap(map).mapObject) return diagnostic("No valid map!");

  const graphics::Transaction transaction;
  const auto scene = unwrap(sceneView).scene();
  const auto root = unwrap(scene).rootNode();
  for (const auto& other : maps)
    if (other->mapObject) other->mapObject->removeFromParent();
  if (!currentMap_) {
    startScene(map);
  } else {
    currentMap_ = map;
    root->insertChild(map->mapObject, 0);
  }
  drawCurrentPath();
  if (currentHighlightNode) highlightNode(currentHighlightNode);
}

}  // namespace orivanta
