// Draws the ribbons of a scene.
#pragma once

#include <span>

#include "Platform/Render/RibbonMesh.hpp"
#include "Platform/Render/RibbonShaders.hpp"
#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// Ribbons and how they are drawn in one frame. Refers to data that lives until the frame is drawn.
struct SceneRibbons {
  RibbonMesh* mesh;
  const RibbonsInScene* seen;
};

/// The camera and the picture.
struct RibbonSight {
  graphics::Matrix4 view;
  graphics::Matrix4 projection;
  float width;   ///< of the picture in pixels
  float height;  ///< of the picture in pixels
  float pixelsPerPoint;
  int layer;  ///< of plain ribbons; routes are drawn one layer above
};

/// Keeps references to its arguments. Plain lines are drawn before routes.
class RibbonPass {
 public:
  RibbonPass(const RibbonSight& sight, std::span<const SceneRibbons> ribbons,
             RibbonShaders& shaders, FrameStatistics& statistics);

  /// Draws the ribbons of a group (see `SceneSnapshot::groups`) with blending. The group's own
  /// opaque shapes hide them. Changes the program, blending and culling.
  void draw(std::uint16_t group, float opacity);

  /// Draws what `draw` adds to the depth buffer.
  void drawDepth(std::uint16_t group);

 private:
  void drawAll(std::uint16_t group, float opacity, bool withHiddenParts);
  void drawHidden(const SceneRibbons& ribbons, float opacity);
  void drawTriangles(const SceneRibbons& ribbons, float opacity, float layer);
  void setUniforms(const RibbonProgram& program, const RibbonsInScene& seen, float opacity) const;

  RibbonSight sight_;
  std::span<const SceneRibbons> ribbons_;
  RibbonShaders& shaders_;
  FrameStatistics& statistics_;
  int marks_ = 0;  ///< values used in the stencil buffer
};

}  // namespace orivanta::render
