#include "Source/UI/MapViewDirections.hpp"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <glm/gtc/matrix_transform.hpp>
#include <numbers>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/KeyframeAnimation.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/Map.hpp"
#include "Source/Node.hpp"
#include "Source/UI/MapView.hpp"
#include "Source/UI/ScenePosition.hpp"
#include "Source/UI/SdkBundle.hpp"

namespace orivanta {

using foundation::diagnostic;
using foundation::unwrap;
using graphics::Vector3;
using scene::Axis;

namespace {

constexpr float pathHeight = MapViewDirectionsConstants::pathHeight;
constexpr float rightAngle = std::numbers::pi_v<float> / 2;

constexpr float underlayWidth = 10;  // all in scene units
constexpr float ribbonWidth = 6;
constexpr float ribbonElevation = 0.1F;  // above the underlay
constexpr float arrowElevation = 0.01F;  // above its group
constexpr float dotElevation = 0.02F;
constexpr float arrowLength = 5;  // of one picture of the arrow
constexpr float discRadius = 12;
constexpr float discElevation = 5.1F;
constexpr double repeatedForever = 50'000'000;

float planLength(const Vector3& a, const Vector3& b) {
  const float dx = a.x - b.x;
  const float dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

// A ribbon along the segment from A to B, which begins at A.
std::shared_ptr<scene::Node> makeRibbon(const Vector3& a, const Vector3& b, double width,
                                        std::shared_ptr<scene::Material> material) {
  const double length = planLength(a, b);
  const std::array outline{graphics::Point{0, width / 2}, graphics::Point{length, width / 2},
                           graphics::Point{length, -width / 2}, graphics::Point{0, -width / 2}};
  auto geometry = scene::makeExtrusion(outline, pathHeight);
  geometry->setMaterials({std::move(material)});
  auto ribbon = scene::Node::make(std::move(geometry));
  ribbon->setPosition({a.x, a.y, 0});
  ribbon->setEulerAngle(Axis::z, std::atan2(b.y - a.y, b.x - a.x));
  ribbon->setCastsShadow(false);
  return ribbon;
}

std::shared_ptr<scene::Geometry> makeDisc(double radius, double height,
                                          std::shared_ptr<scene::Material> material) {
  auto disc = scene::makeCylinder(radius, height);
  disc->setMaterials({std::move(material)});
  return disc;
}

std::shared_ptr<scene::Node> makeFlatDisc(std::shared_ptr<scene::Geometry> disc,
                                          const Vector3& position) {
  auto node = scene::Node::make(std::move(disc));
  node->setPosition(position);
  node->setEulerAngle(Axis::x, rightAngle);
  node->setCastsShadow(false);
  return node;
}

// The arrow runs once over every `arrowLength` units of a segment, pointing from its beginning to
// its end, and moves that way: `shift` counts pictures.
graphics::Matrix4 arrowTransform(float length, float shift) {
  const graphics::Matrix4 turn = glm::rotate(graphics::Matrix4(1.0F), rightAngle, Vector3(0, 0, 1));
  const graphics::Matrix4 moved = glm::translate(turn, Vector3(shift, 0, 0));
  return glm::scale(moved, Vector3(length / arrowLength, 1, 1));
}

std::shared_ptr<scene::Material> makeArrowMaterial(float length) {
  static const auto image = graphics::decodeImage(unwrap(sdkBundle().bytes("Heading", "png")));
  auto material = scene::Material::make(image);
  scene::MaterialProperty diffuse = material->diffuse();
  diffuse.contentsTransform = arrowTransform(length, 0);
  diffuse.wrapS = scene::WrapMode::repeat;
  diffuse.wrapT = scene::WrapMode::repeat;
  material->setDiffuse(std::move(diffuse));

  auto scrolling = std::make_shared<scene::KeyframeAnimation>();
  scrolling->keyPath = "diffuse.contentsTransform";
  scrolling->values = {arrowTransform(length, 0), arrowTransform(length, -5)};
  scrolling->keyTimes = {0, 5};
  scrolling->duration = length;
  scrolling->repeatCount = repeatedForever;
  material->addAnimation(std::move(scrolling), "blah");
  return material;
}

}  // namespace

std::vector<std::shared_ptr<scene::Node>>& MapViewDirectionsPathNodes::nodes() {
  static std::vector<std::shared_ptr<scene::Node>> nodes;
  return nodes;
}

std::shared_ptr<scene::Node>& MapViewDirectionsPathNodes::highLightNode() {
  static std::shared_ptr<scene::Node> node;
  return node;
}

void MapView::drawPath(const NodeList& path, int from) {
  const auto count = static_cast<std::int64_t>(path.size()) - from;
  if (count < 2) return diagnostic("Path too short, aborting");
  if (from < 0) foundation::fatalError("Index out of range");
  currentPath = path;
  currentPathNode = from;
  diagnostic(fmt::format("Drawing new {} count path", count));
  const graphics::Transaction transaction;
  for (auto i = static_cast<std::size_t>(from); i + 1 < path.size(); ++i)
    if (path[i]->map == currentMap_ && path[i + 1]->map == currentMap_)
      drawPathSegment(scenePosition(*path[i]), scenePosition(*path[i + 1]));
}

void MapView::drawCurrentPath() {
  const graphics::Transaction transaction;
  const std::shared_ptr<Node> highlighted = currentHighlightNode;
  clearPaths(false);
  if (currentPath) drawPath(NodeList(*currentPath), currentPathNode);
  if (highlighted) highlightNode(highlighted);
}

void MapView::clearPaths(bool forgetPath) {
  const graphics::Transaction transaction;
  for (const auto& node : MapViewDirectionsPathNodes::nodes()) node->removeFromParent();
  MapViewDirectionsPathNodes::nodes().clear();
  removeHighlightNode();
  if (forgetPath) currentPath.reset();
}

void MapView::drawPathSegment(Vector3 positionA, Vector3 positionB) {
  const graphics::Transaction transaction;
  drawPathSegmentStrip(positionA, positionB, underlayWidth, graphics::colors::white, positionB.z);
  drawPathSegmentStrip(positionA, positionB, ribbonWidth, pathColor, positionB.z + ribbonElevation);
  drawPathSegmentArrow(positionA, positionB, ribbonWidth, positionB.z + ribbonElevation);
}

void MapView::drawPathSegmentStrip(Vector3 positionA, Vector3 positionB, float pathWidth,
                                   graphics::Color color, float elevation) {
  const auto material = scene::Material::make(color);
  const auto cap = makeDisc(pathWidth / 2, pathHeight, material);
  const auto group = scene::Node::make();
  group->setPosition(Axis::z, elevation);
  group->addChild(makeFlatDisc(cap, {positionA.x, positionA.y, 0}));
  group->addChild(makeFlatDisc(cap, {positionB.x, positionB.y, 0}));
  group->addChild(makeRibbon(positionA, positionB, pathWidth, material));
  addPathNode(group);
}

void MapView::drawPathSegmentArrow(Vector3 positionA, Vector3 positionB, float pathWidth,
                                   float elevation) {
  const auto group = scene::Node::make();
  group->setPosition(Axis::z, elevation);
  const auto ribbon = makeRibbon(positionA, positionB, pathWidth / 2,
                                 makeArrowMaterial(planLength(positionA, positionB)));
  ribbon->setPosition(Axis::z, arrowElevation);
  group->addChild(ribbon);

  const auto dot =
      makeDisc(pathWidth / 4, pathHeight, scene::Material::make(graphics::colors::green));
  const auto dots = scene::Node::make();
  dots->addChild(makeFlatDisc(dot, {positionA.x, positionA.y, dotElevation}));
  dots->addChild(makeFlatDisc(dot, {positionB.x, positionB.y, dotElevation}));
  group->addChild(dots);
  addPathNode(group);
}

// Remembered even when there is no scene to show it.
void MapView::addPathNode(const std::shared_ptr<scene::Node>& node) {
  MapViewDirectionsPathNodes::nodes().push_back(node);
  if (const auto scene = unwrap(sceneView).scene()) scene->rootNode()->addChild(node);
}

void MapView::highlightNode(const std::shared_ptr<Node>& node) {
  const graphics::Transaction transaction;
  removeHighlightNode();
  currentHighlightNode = node;
  if (unwrap(node).map != currentMap_) return diagnostic("Highlighted node not on map, skipping");
  Vector3 position = scenePosition(*node);
  position.z = discElevation;
  const auto disc = makeFlatDisc(
      makeDisc(discRadius, pathHeight + 0.5F, scene::Material::make(graphics::colors::orange)),
      position);
  if (const auto scene = unwrap(sceneView).scene()) scene->rootNode()->addChild(disc);
  MapViewDirectionsPathNodes::highLightNode() = disc;
}

void MapView::highlightNode(const NodeList& nodes, std::size_t index) {
  if (index >= nodes.size()) foundation::fatalError("Index out of range");
  highlightNode(nodes[index]);
}

void MapView::removeHighlightNode() {
  const auto& disc = MapViewDirectionsPathNodes::highLightNode();
  if (!disc) return;
  for (const auto& particles : disc->particleSystems()) particles->reset();
  disc->removeFromParent();
}

}  // namespace orivanta
