#include "Source/UI/Parts/CameraRig.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Printed.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;
using scene::Axis;

namespace {

constexpr double nearPlane = 40;  // scene units
constexpr double farPlane = 5000;
constexpr float pi = std::numbers::pi_v<float>;

// Returns the distance at which a square of side `size` fills a field of view, rounded to an
// integer.
float framingDistance(double size, double fov) {
  return static_cast<float>(std::round(size / (2 * std::tan(fov * std::numbers::pi / 180 / 2))));
}

std::shared_ptr<scene::Node> makeCamera(double fov, float distance) {
  auto camera = std::make_shared<scene::Camera>();
  camera->xFov = fov;
  camera->yFov = fov;
  camera->zFar = farPlane;
  camera->zNear = nearPlane;
  auto carrier = scene::Node::make();
  carrier->setCamera(std::move(camera));
  carrier->setPosition({0, 0, distance});
  return carrier;
}

std::shared_ptr<scene::Node> firstChild(const std::shared_ptr<scene::Node>& node) {
  const auto children = node ? node->children() : std::vector<std::shared_ptr<scene::Node>>();
  return children.empty() ? nullptr : children.front();
}

}  // namespace

scene::Node& CameraRig::orbit() const { return unwrap(view_.cameraOrbit); }

scene::Node& CameraRig::labels() const { return unwrap(view_.labelsOrbit); }

scene::Node& CameraRig::carrier() const {
  unwrap(view_.cameraOrbit);
  const auto first = firstChild(view_.cameraOrbit);
  if (!first) foundation::fatalError("Index out of range");
  return *first;
}

void CameraRig::build(scene::Node& root) {
  const graphics::Box box = root.boundingBox();
  diagnostic(fmt::format("bounding box: min:{} max:{}", printed(box.min), printed(box.max)));
  const float width = box.max.x - box.min.x;
  const float height = box.max.y - box.min.y;
  view_.cameraDistance = framingDistance(width > height ? width : height, view_.fov);
  diagnostic(fmt::format("camera distance: {}", *view_.cameraDistance));
  const float shiftX = box.max.x - width / 2;
  const float shiftY = box.max.y - height / 2;
  diagnostic(fmt::format("camera shiftX: {} shiftY: {}", shiftX, shiftY));

  addOrbit(root, {shiftX, shiftY, 0});
  addLabels(root);
}

void CameraRig::addOrbit(scene::Node& root, graphics::Vector3 middle) {
  view_.cameraOrbit = scene::Node::make();
  orbit().setPosition(Axis::x, middle.x);
  orbit().setPosition(Axis::y, middle.y);
  orbit().addChild(makeCamera(view_.fov, *view_.cameraDistance));
  root.addChild(view_.cameraOrbit);
}

void CameraRig::addLabels(scene::Node& root) {
  view_.labelsOrbit = scene::Node::make();
  labels().setPosition(orbit().position());
  const auto atCamera = scene::Node::make();
  atCamera->setPosition(carrier().position());
  labels().addChild(atCamera);
  labels().setEulerAngle(Axis::y, -pi);
  labels().setEulerAngle(Axis::x, -pi / 2);
  root.addChild(view_.labelsOrbit);
}

bool CameraRig::isBuilt() const { return firstChild(view_.cameraOrbit) && view_.labelsOrbit; }

CameraPose CameraRig::pose() const {
  const graphics::Transaction transaction;
  const auto position = orbit().position();
  const auto angles = orbit().eulerAngles();
  return {position.x, position.y, distance(), angles.x, angles.z};
}

double CameraRig::fieldOfView() const {
  const auto first = firstChild(view_.cameraOrbit);
  const auto camera = first ? first->camera() : nullptr;
  return camera ? camera->xFov : view_.fov;
}

void CameraRig::place(const CameraPose& pose) {
  const graphics::Transaction transaction;
  const auto x = static_cast<float>(pose.x);
  const auto y = static_cast<float>(pose.y);
  orbit().setPosition({x, y, 0});
  orbit().setEulerAngle(Axis::x, static_cast<float>(pose.tilt));
  orbit().setEulerAngle(Axis::z, static_cast<float>(pose.turn));
  carrier().setPosition(Axis::z, static_cast<float>(pose.distance));
  labels().setPosition(Axis::x, x);
  labels().setPosition(Axis::y, y);
  labels().setEulerAngle(Axis::z, static_cast<float>(pose.turn));
  adaptPlanes();
}

void CameraRig::shift(float right, float down) {
  const graphics::Transaction transaction;
  scene::Node& node = orbit();
  scene::Node& follower = labels();
  const float angle = node.eulerAngles().z;
  node.setPosition(Axis::x, node.position().x - right * std::cos(angle));
  node.setPosition(Axis::y, node.position().y - right * std::sin(angle));
  node.setPosition(Axis::x, node.position().x - down * std::sin(angle));
  node.setPosition(Axis::y, node.position().y + down * std::cos(angle));
  follower.setPosition(Axis::x, node.position().x);
  follower.setPosition(Axis::y, node.position().y);
  adaptPlanes();
}

void CameraRig::setTilt(float angle) {
  const graphics::Transaction transaction;
  orbit().setEulerAngle(Axis::x, angle);
  adaptPlanes();
}

void CameraRig::setTurn(float angle) {
  const graphics::Transaction transaction;
  scene::Node& node = orbit();
  scene::Node& follower = labels();
  node.setEulerAngle(Axis::z, angle);
  follower.setEulerAngle(Axis::z, angle);
  adaptPlanes();
}

float CameraRig::distance() const { return carrier().position().z; }

void CameraRig::setDistance(float distance) {
  const graphics::Transaction transaction;
  carrier().setPosition(Axis::z, distance);
  adaptPlanes();
}

// Adapts the clip planes so that they do not cut off parts of the current floor.
void CameraRig::adaptPlanes() {
  const auto first = firstChild(view_.cameraOrbit);
  const auto camera = first ? first->camera() : nullptr;
  if (!camera) return;
  const CameraPose seen = pose();
  double nearest = seen.distance;
  const auto& floor = view_.currentMap();
  const graphics::Box box =
      floor && floor->mapObject ? floor->mapObject->boundingBox() : graphics::Box();
  if (!box.isEmpty())
    for (const graphics::Vector3& corner : cornersOf(box))
      nearest = std::min(nearest, depthOf(corner, seen));
  // Anything nearer than this is below or beside the camera.
  const double least = seen.distance / 50;
  camera->zNear = std::min({nearPlane, seen.distance / 10, std::max(least, nearest / 2)});
  camera->zFar = std::max(farPlane, seen.distance * 4);
}

}  // namespace orivanta
