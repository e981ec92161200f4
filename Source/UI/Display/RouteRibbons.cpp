#include "Source/UI/Display/RouteRibbons.hpp"

#include <cmath>
#include <glm/gtc/matrix_transform.hpp>
#include <numbers>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Scene/KeyframeAnimation.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"
#include "Source/UI/MapViewDirections.hpp"
#include "Source/UI/SdkBundle.hpp"

namespace orivanta {

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
constexpr float arrowLength = 5;  // of one arrow image
constexpr float discRadius = 12;
constexpr float discElevation = 5.1F;
constexpr double repeatedForever = 50'000'000;

float planLength(const Vector3& a, const Vector3& b) {
  const float dx = a.x - b.x;
  const float dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

// Returns a ribbon along the segment from A to B, with its origin at A.
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

// The arrow image repeats every `arrowLength` units of a segment. Arrows point and move from its
// start to its end. `shift` is in images.
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

std::shared_ptr<scene::Node> makeRouteStrip(Vector3 positionA, Vector3 positionB, float width,
                                            graphics::Color color, float elevation) {
  const auto material = scene::Material::make(color);
  const auto cap = makeDisc(width / 2, pathHeight, material);
  auto group = scene::Node::make();
  group->setPosition(Axis::z, elevation);
  group->addChild(makeFlatDisc(cap, {positionA.x, positionA.y, 0}));
  group->addChild(makeFlatDisc(cap, {positionB.x, positionB.y, 0}));
  group->addChild(makeRibbon(positionA, positionB, width, material));
  return group;
}

std::shared_ptr<scene::Node> makeRouteArrows(Vector3 positionA, Vector3 positionB, float width,
                                             float elevation) {
  auto group = scene::Node::make();
  group->setPosition(Axis::z, elevation);
  const auto ribbon = makeRibbon(positionA, positionB, width / 2,
                                 makeArrowMaterial(planLength(positionA, positionB)));
  ribbon->setPosition(Axis::z, arrowElevation);
  group->addChild(ribbon);

  const auto dot = makeDisc(width / 4, pathHeight, scene::Material::make(graphics::colors::green));
  const auto dots = scene::Node::make();
  dots->addChild(makeFlatDisc(dot, {positionA.x, positionA.y, dotElevation}));
  dots->addChild(makeFlatDisc(dot, {positionB.x, positionB.y, dotElevation}));
  group->addChild(dots);
  return group;
}

std::array<std::shared_ptr<scene::Node>, 3> makeRouteSegment(Vector3 positionA, Vector3 positionB,
                                                             graphics::Color color) {
  const float height = positionB.z;
  return {makeRouteStrip(positionA, positionB, underlayWidth, graphics::colors::white, height),
          makeRouteStrip(positionA, positionB, ribbonWidth, color, height + ribbonElevation),
          makeRouteArrows(positionA, positionB, ribbonWidth, height + ribbonElevation)};
}

std::shared_ptr<scene::Node> makeHighlightDisc(Vector3 position) {
  position.z = discElevation;
  return makeFlatDisc(
      makeDisc(discRadius, pathHeight + 0.5F, scene::Material::make(graphics::colors::orange)),
      position);
}

}  // namespace orivanta
