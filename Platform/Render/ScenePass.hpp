// Draws the meshes of a scene: opaque parts, parts with images, translucent parts.
#pragma once

#include <span>
#include <vector>

#include "Platform/Render/ImageTextures.hpp"
#include "Platform/Render/Lighting.hpp"
#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/SceneMesh.hpp"
#include "Platform/Render/ShadowMap.hpp"

namespace orivanta::render {

/// The camera and the lights of a scene.
struct SceneSight {
  graphics::Matrix4 view;
  graphics::Matrix4 projection;
  const Lighting& lighting;
  const ShadowMap* shadows;  ///< null if nothing casts shadows
};

/// Keeps references to its arguments. Meshes are drawn in order; drawing those in front first saves
/// work on what they cover.
class ScenePass {
 public:
  ScenePass(const SceneSight& sight, std::span<const SceneMesh> meshes, MeshShaders& shaders,
            ImageTextures& images, FrameStatistics& statistics);

  /// Draws to the bound framebuffer.
  void draw();

 private:
  struct Place {
    const SceneMesh* mesh;
    std::size_t part;
  };

  /// Data in the space of one mesh.
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

  /// Whether back faces of the part are never visible.
  bool seesFrontAlone(const SceneMesh& mesh, std::size_t part) const;

  graphics::Matrix4 view_;
  graphics::Matrix4 projection_;
  const Lighting& lighting_;
  const ShadowMap* shadows_;
  std::span<const SceneMesh> meshes_;
  std::vector<MeshSight> sights_;  ///< one per mesh
  MeshShaders& shaders_;
  ImageTextures& images_;
  FrameStatistics& statistics_;
  const MeshProgram* program_ = nullptr;
};

}  // namespace orivanta::render
