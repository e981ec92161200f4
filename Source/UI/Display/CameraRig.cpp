#include "Source/UI/Display/CameraRig.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/Framing.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/Printed.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;
using scene::Axis;

namespace {

constexpr double nearPlane = 40;  // of a new scene, scene units
constexpr double farPlane = 5000;
constexpr double leastNearShare = 0.001;  // of the camera's distance, for the depth precision
constexpr double nearReserve = 0.5;       // for what is shown later, such as routes and markers
constexpr double farReserve = 1.2;
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

// Returns a lower bound of the depths at which parts of a box are visible. Not positive if the
// camera is not above the box.
double nearestVisibleDepth(const graphics::Box& box, const CameraPose& pose, const Lens& lens) {
  double nearest = std::numeric_limits<double>::max();
  for (const graphics::Vector3& corner : cornersOf(box))
    nearest = std::min(nearest, depthOf(corner, pose));
  // Nothing below the top of the box is nearer than the top at the lower edge of the view.
  const double above = pose.distance * std::cos(pose.tilt) + pose.z - box.max.z;
  const double slope = lens.slopePerPoint() * lens.size.height / 2;
  const double atLowerEdge = above / (std::cos(pose.tilt) + slope * std::sin(pose.tilt));
  return std::max(nearest, atLowerEdge);
}

double farthestDepth(const graphics::Box& box, const CameraPose& pose) {
  double farthest = 0;
  for (const graphics::Vector3& corner : cornersOf(box))
    farthest = std::max(farthest, depthOf(corner, pose));
  return farthest;
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
  adapted_ = false;
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
  return {position.x, position.y, distance(), angles.x, angles.z, position.z};
}

double CameraRig::fieldOfView() const {
  const auto first = firstChild(view_.cameraOrbit);
  const auto camera = first ? first->camera() : nullptr;
  return camera ? camera->xFov : view_.fov;
}

void CameraRig::setFieldOfView(double degrees) {
  const graphics::Transaction transaction;
  const auto first = firstChild(view_.cameraOrbit);
  const auto camera = first ? first->camera() : nullptr;
  if (camera) camera->xFov = camera->yFov = degrees;
}

void CameraRig::place(const CameraPose& pose) {
  const graphics::Transaction transaction;
  const auto x = static_cast<float>(pose.x);
  const auto y = static_cast<float>(pose.y);
  orbit().setPosition({x, y, static_cast<float>(pose.z)});
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

void CameraRig::viewResized() {
  if (adapted_) adaptPlanes();
}

// Adapts the clip planes so that they cut off nothing visible of the scene. They are never closer
// together than those of a new scene unless the camera is near.
void CameraRig::adaptPlanes() {
  const graphics::Transaction transaction;
  const auto first = firstChild(view_.cameraOrbit);
  const auto camera = first ? first->camera() : nullptr;
  if (!camera) return;
  adapted_ = true;
  const CameraPose seen = pose();
  const Lens lens{view_.sceneView->bounds().size, fieldOfView()};
  camera->zNear = std::min(nearPlane, seen.distance / 10);
  camera->zFar = std::max(farPlane, seen.distance * 4);
  const auto scene = view_.sceneView->scene();
  const graphics::Box box = scene ? scene->rootNode()->boundingBox() : graphics::Box();
  if (box.isEmpty()) return;
  const double nearest = nearestVisibleDepth(box, seen, lens) * nearReserve;
  camera->zNear = std::min(camera->zNear, std::max(nearest, seen.distance * leastNearShare));
  camera->zFar = std::max(camera->zFar, farthestDepth(box, seen) * farReserve);
}

}  // namespace orivanta
