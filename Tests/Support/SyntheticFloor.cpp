#include "Tests/Support/SyntheticFloor.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <glm/ext/matrix_transform.hpp>
#include <glm/geometric.hpp>
#include <glm/gtc/constants.hpp>
#include <span>

#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/KeyframeAnimation.hpp"
#include "Platform/Scene/Light.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Shapes.hpp"

namespace orivanta::test {

using graphics::Color;
using graphics::Vector3;

namespace {

constexpr double cell = 30.0;
constexpr double nodeDistance = 15.0;  // between the nodes of a route
constexpr float roomHeight = 10.0F;    // of the lowest rooms

/// Collects prisms with flat faces, which share no corners.
class Prisms {
 public:
  std::vector<std::array<float, 8>> vertices;
  std::vector<std::vector<std::uint32_t>> indices;  ///< one list per prism

  void add(Vector3 center, float radius, float height, std::uint32_t sides) {
    indices.emplace_back();
    std::vector<Vector3> lower;
    for (std::uint32_t i = 0; i < sides; ++i) {
      const float angle = glm::two_pi<float>() * static_cast<float>(i) / static_cast<float>(sides);
      lower.push_back(center + radius * Vector3(std::cos(angle), std::sin(angle), 0));
    }
    const Vector3 up(0, 0, height);
    std::vector<Vector3> upper;
    for (const Vector3& corner : lower) upper.push_back(corner + up);
    for (std::size_t i = 0; i < sides; ++i) {
      const std::size_t next = (i + 1) % sides;
      addFace(std::array{lower[i], lower[next], upper[next], upper[i]});
    }
    addFace(upper);
    std::reverse(lower.begin(), lower.end());
    addFace(lower);
  }

 private:
  // Corners are counterclockwise as seen from outside.
  void addFace(std::span<const Vector3> corners) {
    const auto first = static_cast<std::uint32_t>(vertices.size());
    const Vector3 normal =
        glm::normalize(glm::cross(corners[1] - corners[0], corners[2] - corners[0]));
    for (const Vector3& at : corners)
      vertices.push_back({at.x, at.y, at.z, normal.x, normal.y, normal.z, 0, 0});
    for (std::uint32_t i = 2; i < corners.size(); ++i)
      indices.back().insert(indices.back().end(), {first, first + i - 1, first + i});
  }
};

std::shared_ptr<scene::Node> makeNode(std::shared_ptr<scene::Geometry> geometry,
                                      const std::shared_ptr<scene::Material>& material,
                                      Vector3 position, Vector3 angles) {
  geometry->setMaterials({material});
  auto node = scene::Node::make(std::move(geometry));
  node->setPosition(position);
  node->setEulerAngles(angles);
  node->setCastsShadow(false);
  return node;
}

std::shared_ptr<const graphics::Image> arrowImage() {
  constexpr std::uint32_t side = 32;
  std::vector<std::uint8_t> pixels(std::size_t{4} * side * side, 255);
  for (std::uint32_t y = 0; y < side; ++y)
    for (std::uint32_t x = 0; x < side; ++x)
      if (y / 2 >= x % 16 && y < 28) pixels[std::size_t{4} * (y * side + x)] = 40;
  return graphics::Image::make(side, side, std::move(pixels));
}

std::shared_ptr<scene::Material> arrowMaterial(
    double length, const std::shared_ptr<const graphics::Image>& image) {
  const graphics::Matrix4 turn =
      glm::rotate(graphics::Matrix4(1.0F), glm::half_pi<float>(), Vector3(0, 0, 1));
  const graphics::Matrix4 placed =
      glm::scale(turn, Vector3(static_cast<float>(length) / 5.0F, 1, 1));
  auto material = scene::Material::make(image);
  material->setDiffuse({image, placed, scene::WrapMode::repeat, scene::WrapMode::repeat});
  auto moving = std::make_shared<scene::KeyframeAnimation>();
  moving->keyPath = "diffuse.contentsTransform";
  moving->values = {placed, glm::translate(placed, Vector3(-5, 0, 0))};
  moving->keyTimes = {0, 5};
  moving->duration = length;
  moving->repeatCount = 1e6;
  material->addAnimation(moving, "moving");
  return material;
}

struct Segment {
  Vector3 from;
  Vector3 to;

  double length() const { return std::hypot(to.x - from.x, to.y - from.y); }
  float angle() const { return std::atan2(to.y - from.y, to.x - from.x); }

  std::shared_ptr<scene::Geometry> ribbon(double width) const {
    const std::array<graphics::Point, 4> outline{
        {{0, width / 2}, {length(), width / 2}, {length(), -width / 2}, {0, -width / 2}}};
    return scene::makeExtrusion(outline, 0.1);
  }

  // Two discs, and a ribbon between them with its own material.
  std::shared_ptr<scene::Node> group(double ribbonWidth, double discWidth, float elevation,
                                     const std::shared_ptr<scene::Material>& ribbonMaterial,
                                     const std::shared_ptr<scene::Material>& discMaterial) const {
    auto group = scene::Node::make();
    group->setPosition({0, 0, elevation});
    const auto disc = scene::makeCylinder(discWidth / 2, 0.1);
    const Vector3 flat(glm::half_pi<float>(), 0, 0);
    group->addChild(makeNode(disc, discMaterial, {from.x, from.y, 0.02F}, flat));
    group->addChild(makeNode(disc, discMaterial, {to.x, to.y, 0.02F}, flat));
    group->addChild(
        makeNode(ribbon(ribbonWidth), ribbonMaterial, {from.x, from.y, 0}, {0, 0, angle()}));
    return group;
  }
};

// Back and forth along every third row of rooms, just above the highest ones.
Vector3 nodeOfRoute(int index, int columns) {
  const auto perRow = static_cast<int>(columns * cell / nodeDistance);
  const int row = index / perRow;
  const int along = row % 2 == 0 ? index % perRow : perRow - 1 - index % perRow;
  return {static_cast<float>(nodeDistance * along), static_cast<float>(3 * cell * row),
          roomHeight + 10.5F};
}

}  // namespace

std::shared_ptr<scene::Node> makeSyntheticFloor(int columns, int rows, int sides) {
  constexpr std::array<Color, 8> palette{{{0.86F, 0.78F, 0.62F},
                                          {0.62F, 0.74F, 0.86F},
                                          {0.74F, 0.85F, 0.66F},
                                          {0.90F, 0.66F, 0.60F},
                                          {0.80F, 0.80F, 0.80F},
                                          {0.72F, 0.64F, 0.82F},
                                          {0.93F, 0.87F, 0.56F},
                                          {0.60F, 0.82F, 0.80F}}};
  Prisms prisms;
  for (int row = 0; row < rows; ++row)
    for (int column = 0; column < columns; ++column)
      prisms.add({cell * (column + 0.5), cell * (row + 0.5), 0}, 14.0F,
                 roomHeight + 2 * static_cast<float>((7 * column + 5 * row) % 6),
                 static_cast<std::uint32_t>(sides));
  const auto vertices = bytesOf(prisms.vertices);
  auto floor = scene::Node::make();
  for (std::size_t i = 0; i < prisms.indices.size(); ++i) {
    auto geometry =
        scene::Geometry::make(vertices, {{.data = bytesOf(prisms.indices[i]), .bytesPerIndex = 4}});
    geometry->setMaterials({scene::Material::make(palette[i * 5 % palette.size()])});
    floor->addChild(scene::Node::make(std::move(geometry)));
  }
  return floor;
}

std::shared_ptr<scene::Node> makeSyntheticRoute(int segments, int columns) {
  auto route = scene::Node::make();
  const auto arrow = arrowImage();
  for (int i = 0; i < segments; ++i) {
    const Segment segment{nodeOfRoute(i, columns), nodeOfRoute(i + 1, columns)};
    const float elevation = segment.to.z;
    const auto white = scene::Material::make(graphics::colors::white);
    const auto blue = scene::Material::make(Color{0.1F, 0.4F, 0.9F});
    const auto green = scene::Material::make(graphics::colors::green);
    route->addChild(segment.group(10, 10, elevation, white, white));
    route->addChild(segment.group(6, 6, elevation + 0.1F, blue, blue));
    route->addChild(
        segment.group(3, 3, elevation + 0.11F, arrowMaterial(segment.length(), arrow), green));
  }
  return route;
}

LightAndCamera lightAndWatch(scene::Scene& scene, int columns, int rows, float tilt) {
  const auto add = [&](auto set, Vector3 position, Vector3 angles) {
    auto node = scene::Node::make();
    set(*node);
    node->setPosition(position);
    node->setEulerAngles(angles);
    scene.rootNode()->addChild(node);
    return node;
  };
  auto sun = std::make_shared<scene::Light>();
  sun->castsShadow = true;
  const auto sunNode = add([&](auto& node) { node.setLight(sun); }, {}, {0.5F, 0.4F, 0});
  auto sky = std::make_shared<scene::Light>();
  sky->type = scene::LightType::ambient;
  sky->color = graphics::colors::darkGray;
  add([&](auto& node) { node.setLight(sky); }, {}, {});

  auto camera = std::make_shared<scene::Camera>();
  camera->zNear = 40;
  camera->zFar = 5000;
  const auto orbit = add([](auto&) {}, {cell * columns / 2, cell * rows / 2, 0}, {tilt, 0, 0});
  auto eye = scene::Node::make();
  eye->setCamera(camera);
  eye->setPosition({0, 0, static_cast<float>(cell * std::max(rows, columns * 5 / 8) * 0.95)});
  orbit->addChild(eye);
  return {sunNode, orbit, eye};
}

}  // namespace orivanta::test
