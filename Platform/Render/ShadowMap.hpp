// The shadow map of a directional light.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Render/Gl.hpp"
#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/SceneMesh.hpp"

namespace orivanta::render {

/// A depth map along the light's direction that covers all shadow casters: visible opaque parts
/// whose node casts shadows. It is redrawn only if its contents change, or if the camera's distance
/// requires a different resolution.
class ShadowMap {
 public:
  /// `lightWorld` is the matrix of the light's node; light shines along its negative z axis.
  /// `unitsPerPixel` is the size of the smallest details that the camera sees. Returns false if
  /// nothing casts a shadow. Binds another framebuffer.
  bool update(const graphics::Matrix4& lightWorld, std::span<const SceneMesh> meshes,
              float unitsPerPixel, MeshShaders& shaders, FrameStatistics& statistics);

  void bind(GLint unit) const;

  /// Maps from the scene's space to texture coordinates and depth, all from 0 to 1.
  const graphics::Matrix4& sceneToMap() const { return sceneToMap_; }

  /// How far a point is moved away from its surface before the lookup, in scene units: slightly
  /// more than a texel, so that surfaces do not shade themselves.
  float offset() const { return offset_; }

  float texel() const { return 1.0F / static_cast<float>(side_); }  ///< relative to the map's side

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
  std::vector<Caster> casters_;  ///< the contents of the map
  graphics::Matrix4 lightWorld_{0.0F};
  graphics::Matrix4 sceneToClip_{1.0F};
  graphics::Matrix4 sceneToMap_{1.0F};
  float offset_ = 0.0F;
  graphics::Box box_;  ///< of the casters in the light's space, which has the scene's origin
  int side_ = 0;       ///< in texels
};

}  // namespace orivanta::render
