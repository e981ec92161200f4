// The lights of a scene in the form that the shaders need.
#pragma once

#include <span>
#include <vector>

#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// Positions are in the camera's space and intensities are linear. Only one directional light casts
/// shadows; it comes first. Lights beyond the shader's maximum are ignored. A scene without lights
/// is drawn fully lit.
class Lighting {
 public:
  Lighting(std::span<const LightInScene> lights, const graphics::Matrix4& view);

  /// The world matrix of the light that casts shadows, or null if there is none.
  const graphics::Matrix4* shadowCaster() const { return hasCaster_ ? &caster_ : nullptr; }

  /// Whether every light comes from the same direction at all points.
  bool isFarAway() const;

  int count() const { return static_cast<int>(places_.size()); }

  /// The program must be in use.
  void setUniforms(const MeshProgram& program) const;

 private:
  void add(const LightInScene& light, const graphics::Matrix4& view);

  graphics::Vector3 ambient_{0.0F};
  std::vector<graphics::Vector4> places_;
  std::vector<graphics::Vector4> directions_;
  std::vector<graphics::Vector4> colors_;
  graphics::Matrix4 caster_{1.0F};
  float unshadowed_ = 0.0F;  // fraction of the caster's light that shadows do not remove
  bool hasCaster_ = false;
};

}  // namespace orivanta::render
