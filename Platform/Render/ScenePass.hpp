// Draws the meshes of a scene once: what is opaque, what has images, what is translucent.
#pragma once

#include <span>
#include <vector>

#include "Platform/Render/ImageTextures.hpp"
#include "Platform/Render/Lighting.hpp"
#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/SceneMesh.hpp"
#include "Platform/Render/ShadowMap.hpp"

namespace orivanta::render {

/// How a scene is seen and lit.
struct SceneSight {
  graphics::Matrix4 view;
  graphics::Matrix4 projection;
  const Lighting& lighting;
  const ShadowMap* shadows;  ///< null when nothing casts any
};

/// Refers to what it is made of. Meshes that come first are drawn first, so that what is known to
/// lie in front saves drawing what it covers.
class ScenePass {
 public:
  ScenePass(const SceneSight& sight, std::span<const SceneMesh> meshes, MeshShaders& shaders,
            ImageTextures& images, FrameStatistics& statistics);

  /// Into the framebuffer that is bound.
  void draw();

 private:
  struct Place {
    const SceneMesh* mesh;
    std::size_t part;
  };

  /// In the space of one mesh.
  struct MeshSight {
    Frustum frustum;
    float cameraHeight;
  };

  const MeshSight& sightOf(const SceneMesh& mesh) const;
  void tightenDepth();
  void drawOpaqueColors();
  void drawLayer(const SceneMesh& mesh, std::size_t first, std::size_t end);
  void drawColors(const SceneMesh& mesh, std::span<const Run> runs, bool frontAlone);
  void drawOpaqueImages();
  void drawTranslucent();
  void select(bool textured, bool frontAlone);
  void setSceneUniforms() const;
  void setLayer(const SceneMesh& mesh, std::size_t part);
  void bindMesh(const SceneMesh& mesh);
  void bindImage(const PartLook& look);
  bool sees(const SceneMesh& mesh, std::size_t part) const;

  /// Whether faces that are turned away from the camera do not show.
  bool seesFrontAlone(const SceneMesh& mesh, std::size_t part) const;

  graphics::Matrix4 view_;
  graphics::Matrix4 projection_;
  const Lighting& lighting_;
  const ShadowMap* shadows_;
  std::span<const SceneMesh> meshes_;
  std::vector<MeshSight> sights_;  ///< one a mesh
  MeshShaders& shaders_;
  ImageTextures& images_;
  FrameStatistics& statistics_;
  const MeshProgram* program_ = nullptr;
};

}  // namespace orivanta::render
