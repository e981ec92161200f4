#include "Source/UI/Display/Styled/StackShapes.hpp"

#include <algorithm>
#include <cstddef>

#include "Platform/Scene/Node.hpp"
#include "Source/Map.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

namespace {

constexpr double largestSlab = 2;  // times the area of everything else

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

using Surface = ShapeRole::Surface;

bool isSlab(const ShapeRole& role) { return role.surface == Surface::slab; }
bool isWalkable(const ShapeRole& role) { return role.surface == Surface::walkable; }

}  // namespace

StackShapes::StackShapes(const Map& floor, const Venue& venue, const KindWords& words)
    : roles(shapeRoles(floor, venue, words)), model_(floor.mapObject) {
  const auto children = model_->children();
  for (std::size_t i = 0; i < children.size(); ++i)
    for (const graphics::Vector3& corner : cornersIn(*children[i]))
      (isSlab(roles[i]) ? slabs_ : contents_).add(corner);
}

void StackShapes::choose(const graphics::Box& all) {
  const bool isSite = areaOf(slabs_) > largestSlab * areaOf(all) &&
                      std::any_of(roles.begin(), roles.end(), isWalkable);
  const auto children = model_->children();
  for (std::size_t i = 0; i < children.size(); ++i) {
    if (isSite && isSlab(roles[i])) {
      leftOut.push_back(children[i]);
      continue;
    }
    shapes.push_back(children[i]);
    for (const graphics::Vector3& corner : cornersIn(*children[i])) {
      corners.push_back(corner);
      box.add(corner);
    }
  }
}

}  // namespace orivanta
