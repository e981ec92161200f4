#include "Source/UI/Display/FloorCorners.hpp"

#include "Platform/Scene/Node.hpp"
#include "Source/UI/Display/Framing.hpp"

namespace orivanta {

std::vector<graphics::Vector3> cornersOfShapes(const scene::Node& floor) {
  std::vector<graphics::Vector3> corners;
  for (const auto& shape : floor.children()) {
    const graphics::Box box = shape->boundingBox();
    if (box.isEmpty()) continue;
    const graphics::Matrix4 toFloor = shape->transform();
    for (const graphics::Vector3& corner : cornersOf(box))
      corners.emplace_back(toFloor * graphics::Vector4(corner, 1.0F));
  }
  return corners;
}

}  // namespace orivanta
