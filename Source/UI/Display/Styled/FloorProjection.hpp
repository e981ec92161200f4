// Where points of a floor appear in the view.
// Private header.
#pragma once

#include <glm/mat4x4.hpp>

#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Scene.hpp"
#include "Source/UI/Labels/PlaceLabel.hpp"

namespace orivanta {

/// The projection of a frame.
class FloorProjection {
 public:
  /// `view`: points.
  FloorProjection(const scene::Viewpoint& viewpoint, graphics::Size view);

  double tilt() const { return tilt_; }  ///< see `CameraPose`
  double turn() const { return turn_; }  ///< see `CameraPose`

  const graphics::Vector3& eye() const { return eye_; }  ///< where the camera is in the scene

  /// Returns where a point of the scene appears.
  ProjectedPlace of(const graphics::Vector3& point) const;

 private:
  graphics::Size view_;
  glm::dmat4 toClip_;   // from the scene to clip space
  double pointsAtOne_;  // points per unit at a depth of 1
  double tilt_;
  double turn_;
  graphics::Vector3 eye_;
};

}  // namespace orivanta
