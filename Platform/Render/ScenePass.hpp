// Draws the meshes and ribbons of a scene: opaque parts, parts with images, ribbons, groups that
// are blended as one, translucent parts.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Render/ImageTextures.hpp"
#include "Platform/Render/Lighting.hpp"
#include "Platform/Render/MeshShaders.hpp"
#include "Platform/Render/RibbonPass.hpp"
#include "Platform/Render/SceneMesh.hpp"
#include "Platform/Render/ShadowMap.hpp"

namespace orivanta::render {

/// The camera, the picture and the lights of a scene.
struct SceneSight {
  graphics::Matrix4 view;
  graphics::Matrix4 projection;
  const Lighting& lighting;
  const ShadowMap* shadows;  ///< null if nothing casts shadows
  GLsizei width;             ///< of the picture in pixels
  GLsizei height;            ///< of the picture in pixels
  float pixelsPerPoint;
  int highestLayer;  ///< of all meshes
};

/// What is drawn, in order: drawing meshes in front first saves work on what they cover.
struct SceneContents {
  std::span<const SceneMesh> meshes;
  std::span<const SceneRibbons> ribbons;
  std::span<const float> groups;  ///< see SceneSnapshot
};

/// What belongs to the renderer.
struct SceneTools {
  MeshShaders& shaders;
  RibbonShaders& ribbonShaders;
  ImageTextures& images;
  FrameStatistics& statistics;
};

/// Keeps references to what its arguments refer to.
class ScenePass {
 public:
  ScenePass(const SceneSight& sight, const SceneContents& contents, const SceneTools& tools);

  /// Draws to the bound framebuffer, whose depth and stencil buffers were cleared.
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
  void drawGroup(std::uint16_t group, float opacity);
  void drawRibbons(std::uint16_t group, float opacity);
  void drawOpaque(std::uint16_t group);
  void drawOpaqueColors(std::uint16_t group);
  void drawLayer(const SceneMesh& mesh, std::size_t first, std::size_t end, std::uint16_t group);
  void drawColors(const SceneMesh& mesh, std::span<const Run> runs, bool frontAlone);
  void drawOpaqueImages(std::uint16_t group);
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
  SceneContents contents_;
  std::span<const SceneMesh> meshes_;
  std::vector<MeshSight> sights_;  ///< one per mesh
  MeshShaders& shaders_;
  ImageTextures& images_;
  FrameStatistics& statistics_;
  std::optional<RibbonPass> ribbons_;  ///< nothing if there are none
  const MeshProgram* program_ = nullptr;
};

}  // namespace orivanta::render
