#include "Platform/Render/SceneMesh.hpp"

namespace orivanta::render {

graphics::Box transformed(const graphics::Box& box, const graphics::Matrix4& matrix) {
  graphics::Box result;
  if (box.isEmpty()) return result;
  for (int corner = 0; corner < 8; ++corner) {
    const graphics::Vector3 point{(corner & 1) != 0 ? box.max.x : box.min.x,
                                  (corner & 2) != 0 ? box.max.y : box.min.y,
                                  (corner & 4) != 0 ? box.max.z : box.min.z};
    result.add(graphics::Vector3(matrix * graphics::Vector4(point, 1.0F)));
  }
  return result;
}

}  // namespace orivanta::render
