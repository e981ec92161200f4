#include "Source/UI/Display/Styled/FloorProjection.hpp"

#include <algorithm>
#include <cmath>

namespace orivanta {

FloorProjection::FloorProjection(const scene::Viewpoint& viewpoint, graphics::Size view)
    : view_(view),
      toClip_(glm::dmat4(viewpoint.projectionMatrix()) * glm::dmat4(viewpoint.viewMatrix())),
      pointsAtOne_(viewpoint.projectionMatrix()[0][0] * view.width / 2) {
  const graphics::Matrix4& toCamera = viewpoint.viewMatrix();
  tilt_ = std::acos(std::clamp<double>(toCamera[2][2], -1, 1));
  turn_ = std::atan2(toCamera[1][0], toCamera[0][0]);
  eye_ = graphics::Vector3(glm::inverse(toCamera)[3]);
}

ProjectedPlace FloorProjection::of(const graphics::Vector3& point) const {
  const glm::dvec4 clip = toClip_ * glm::dvec4(point, 1.0);
  if (!(clip.w > 0)) return {};
  return {{(clip.x / clip.w + 1) / 2 * view_.width, (1 - clip.y / clip.w) / 2 * view_.height},
          pointsAtOne_ / clip.w};
}

}  // namespace orivanta
