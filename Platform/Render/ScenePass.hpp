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

  void tightenDepth();
  void drawOpaqueColors();
  void drawOpaqueImages();
  void drawTranslucent();
  void use(bool textured, bool frontAlone);
  void bindMesh(const SceneMesh& mesh);
  void bindImage(const PartLook& look);
  bool sees(const SceneMesh& mesh, std::size_t part) const;
  bool seesFrontAlone(const SceneMesh& mesh, std::size_t part) const;

  graphics::Matrix4 view_;
  graphics::Matrix4 projection_;
  const Lighting& lighting_;
  const ShadowMap* shadows_;
  std::span<const SceneMesh> meshes_;
  std::vector<Frustum> frusta_;  ///< one a mesh
  std::vector<float> heights_;   ///< of the camera in the mesh's space, one a mesh
  MeshShaders& shaders_;
  ImageTextures& images_;
  FrameStatistics& statistics_;
  const MeshProgram* program_ = nullptr;
};

}  // namespace orivanta::render
