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
/// node casts them, unless they are translucent. Drawn again only when it would look different, and
/// when the camera has come so close, or gone so far, that more or fewer texels serve.
class ShadowMap {
 public:
  /// `lightWorld`: of the node that holds the light, which shines along its negative z axis.
  /// `unitsPerPixel`: how small the details are that the camera sees. False when nothing casts a
  /// shadow. Leaves another framebuffer bound.
  bool update(const graphics::Matrix4& lightWorld, std::span<const SceneMesh> meshes,
              float unitsPerPixel, MeshShaders& shaders, FrameStatistics& statistics);

  void bind(GLint unit) const;

  /// From the scene's space to texture coordinates and depth, all from 0 to 1.
  const graphics::Matrix4& sceneToMap() const { return sceneToMap_; }

  /// How far a point is moved off its surface before it is looked up, in scene units: a little
  /// more than a texel, so that no surface shades itself.
  float offset() const { return offset_; }

  float texel() const { return 1.0F / static_cast<float>(side_); }  ///< a share of the map's side

 private:
  struct Caster {
    const Mesh* mesh;
    std::uint64_t revision;
    graphics::Matrix4 world;
    SidedRuns runs;
    friend bool operator==(const Caster&, const Caster&) = default;
  };

  Caster makeCaster(const SceneMesh& mesh) const;
  void findBox(std::span<const SceneMesh> meshes);
  void resize(int side);
  void fit();
  void draw(MeshShaders& shaders, FrameStatistics& statistics) const;

  gl::Texture depth_;
  gl::Framebuffer framebuffer_;
  std::vector<Caster> casters_;  ///< what the map shows
  graphics::Matrix4 lightWorld_{0.0F};
  graphics::Matrix4 sceneToClip_{1.0F};
  graphics::Matrix4 sceneToMap_{1.0F};
  float offset_ = 0.0F;
  graphics::Box box_;  ///< of what casts, in the light's space, whose origin is the scene's
  int side_ = 0;       ///< texels
};

}  // namespace orivanta::render
