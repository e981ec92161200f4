#include "Source/UI/Display/Styled/StackShapes.hpp"

#include <cstddef>

#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

namespace {

// Times the area of everything else.
constexpr double largestFramed = 2;
constexpr double largestShown = 3;

std::vector<graphics::Vector3> cornersIn(const scene::Node& shape) {
  std::vector<graphics::Vector3> corners;
  const graphics::Box box = shape.boundingBox();
  if (box.isEmpty()) return corners;
  const graphics::Matrix4 toFloor = shape.transform();
  for (const graphics::Vector3& corner : cornersOf(box))
    corners.emplace_back(toFloor * graphics::Vector4(corner, 1.0F));
  return corners;
}

double areaOf(const graphics::Box& box) {
  return box.isEmpty() ? 0 : (double{box.max.x} - box.min.x) * (double{box.max.y} - box.min.y);
}

bool isSlab(const ShapeRole& role) { return role.surface == ShapeRole::Surface::slab; }

}  // namespace

StackShapes::StackShapes(const Map& floor, const Venue& venue, const KindWords& words)
    : roles(shapeRoles(floor, venue, words)), model_(floor.mapObject) {
  const auto children = model_->children();
  for (std::size_t i = 0; i < children.size(); ++i)
    for (const graphics::Vector3& corner : cornersIn(*children[i]))
      (isSlab(roles[i]) ? slabs_ : contents_).add(corner);
}

void StackShapes::choose(const graphics::Box& all) {
  const double ratio = contents_.isEmpty() ? 0 : areaOf(slabs_) / areaOf(all);
  const auto children = model_->children();
  for (std::size_t i = 0; i < children.size(); ++i) {
    if (isSlab(roles[i]) && ratio > largestShown) leftOut.push_back(children[i]);
    if (isSlab(roles[i]) && ratio > largestFramed) continue;
    shapes.push_back(children[i]);
    for (const graphics::Vector3& corner : cornersIn(*children[i])) {
      corners.push_back(corner);
      box.add(corner);
    }
  }
}

}  // namespace orivanta
