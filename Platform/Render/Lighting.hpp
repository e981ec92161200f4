// The lights of a scene as its shader wants them.
#pragma once

#include <span>
#include <vector>

#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// In the camera's space and in linear amounts of light. The light that casts shadows, a
/// directional one, comes first; further ones cast none, and what exceeds the most that a program
/// takes is left out. A scene without lights is lit fully.
class Lighting {
 public:
  Lighting(std::span<const LightInScene> lights, const graphics::Matrix4& view);

  /// The world matrix of the light that casts shadows; null without one.
  const graphics::Matrix4* shadowCaster() const { return hasCaster_ ? &caster_ : nullptr; }

  /// Whether all lights shine on everything from the same side.
  bool isFarAway() const;

  int count() const { return static_cast<int>(places_.size()); }

  /// The program is in use.
  void setUniforms(const MeshProgram& program) const;

 private:
  void add(const LightInScene& light, const graphics::Matrix4& view);

  graphics::Vector3 ambient_{0.0F};
  std::vector<graphics::Vector4> places_;
  std::vector<graphics::Vector4> directions_;
  std::vector<graphics::Vector4> colors_;
  graphics::Matrix4 caster_{1.0F};
  bool hasCaster_ = false;
};

}  // namespace orivanta::render
