// How far a light far away reaches into a scene.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Render/Gl.hpp"
#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/SceneMesh.hpp"

namespace orivanta::render {

/// A depth map along the light's direction, around all that casts shadows: visible parts whose
/// node casts them, unless they are translucent. Drawn again only when it would look different.
class ShadowMap {
 public:
  ShadowMap();

  /// `lightWorld`: of the node that holds the light, which shines along its negative z axis. False
  /// when nothing casts a shadow. Leaves another framebuffer bound.
  bool update(const graphics::Matrix4& lightWorld, std::span<const SceneMesh> meshes,
              MeshShaders& shaders, FrameStatistics& statistics);

  void bind(GLint unit) const;

  /// From the scene's space to texture coordinates and depth, all from 0 to 1.
  const graphics::Matrix4& sceneToMap() const { return sceneToMap_; }

  /// How far a point is moved off its surface before it is looked up, in scene units: a little
  /// more than a texel, so that no surface shades itself.
  float offset() const { return offset_; }

 private:
  struct Caster {
    const Mesh* mesh;
    std::uint64_t revision;
    graphics::Matrix4 world;
    std::vector<Run> runsOfFronts;  ///< of parts that the light meets from their front alone
    std::vector<Run> runsOfBothSides;
    friend bool operator==(const Caster&, const Caster&) = default;
  };

  Caster makeCaster(const SceneMesh& mesh) const;
  bool fit(std::span<const SceneMesh> meshes);
  void draw(MeshShaders& shaders, FrameStatistics& statistics) const;

  gl::Texture depth_;
  gl::Framebuffer framebuffer_;
  std::vector<Caster> casters_;  ///< what the map shows
  graphics::Matrix4 lightWorld_{0.0F};
  graphics::Matrix4 sceneToClip_{1.0F};
  graphics::Matrix4 sceneToMap_{1.0F};
  float offset_ = 0.0F;
  bool hasCasters_ = false;
};

}  // namespace orivanta::render
