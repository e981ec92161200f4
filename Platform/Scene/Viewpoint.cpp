#include <glm/matrix.hpp>
#include <glm/vec4.hpp>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Camera.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Rigid.hpp"
#include "Platform/Scene/Scene.hpp"

namespace orivanta::scene {

using graphics::Vector3;

Viewpoint::Viewpoint(const Node& pointOfView, graphics::Size view) : size_(view) {
  const graphics::Transaction transaction;
  const auto camera = pointOfView.camera();
  if (!camera) foundation::fatalError("a point of view needs a camera");
  view_ = inverseOfRigid(pointOfView.worldTransform());
  projection_ = camera->projection(view);
}

Vector3 Viewpoint::project(const Vector3& point) const {
  const glm::dvec4 clip = glm::dmat4(projection_) * (glm::dmat4(view_) * glm::dvec4(point, 1.0));
  const glm::dvec3 device = glm::dvec3(clip) / clip.w;
  return {(device.x + 1) / 2 * size_.width, (1 - device.y) / 2 * size_.height, (device.z + 1) / 2};
}

Ray Viewpoint::ray(graphics::Point viewPoint) const {
  const glm::dmat4 toScene = glm::inverse(glm::dmat4(projection_) * glm::dmat4(view_));
  const double x = size_.width > 0 ? viewPoint.x / size_.width * 2 - 1 : 0.0;
  const double y = size_.height > 0 ? 1 - viewPoint.y / size_.height * 2 : 0.0;
  const glm::dvec4 nearest = toScene * glm::dvec4(x, y, -1, 1);
  const glm::dvec4 farthest = toScene * glm::dvec4(x, y, 1, 1);
  const glm::dvec3 origin = glm::dvec3(nearest) / nearest.w;
  return {Vector3(origin), Vector3(glm::dvec3(farthest) / farthest.w - origin)};
}

}  // namespace orivanta::scene
