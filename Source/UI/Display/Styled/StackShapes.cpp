#include "Source/UI/Display/Styled/StackShapes.hpp"

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

}  // namespace

StackShapes::StackShapes(const Map& floor, const Venue& venue, const KindWords& words)
    : roles(shapeRoles(floor, venue, words)) {
  const auto children = floor.mapObject->children();
  graphics::Box slabs;
  for (std::size_t i = 0; i < children.size(); ++i) {
    const bool isSlab = roles[i].surface == ShapeRole::Surface::slab;
    for (const graphics::Vector3& corner : cornersIn(*children[i]))
      (isSlab ? slabs : box).add(corner);
  }
  const bool withSlabs = box.isEmpty() || areaOf(slabs) <= largestSlab * areaOf(box);
  if (withSlabs && !slabs.isEmpty()) box.add(slabs);
  for (std::size_t i = 0; i < children.size(); ++i) {
    const bool counts = withSlabs || roles[i].surface != ShapeRole::Surface::slab;
    (counts ? shapes : leftOut).push_back(children[i]);
    if (!counts) continue;
    for (const graphics::Vector3& corner : cornersIn(*children[i])) corners.push_back(corner);
  }
}

}  // namespace orivanta
