// Ribbons on the GPU.
#pragma once

#include <span>
#include <vector>

#include "Platform/Render/DrawRuns.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/Render/Gl.hpp"
#include "Platform/Scene/Ribbons.hpp"

namespace orivanta::render {

/// Colors and widths are texels of a small texture, which the vertex shader reads: a change of all
/// of them uploads 2 KiB.
class RibbonMesh {
 public:
  RibbonMesh(const scene::Ribbons& ribbons, FrameStatistics& statistics);

  std::span<const MeshPart> parts() const { return parts_; }
  const graphics::Box& box() const { return box_; }

  /// Binds everything for drawing, with the colors at texture unit 0. Colors that differ from those
  /// of the last call are uploaded.
  void bind(const std::vector<scene::RibbonColor>& colors, FrameStatistics& statistics);

 private:
  gl::VertexArray vertexArray_;
  gl::Buffer vertices_;
  gl::Buffer indices_;
  gl::Texture palette_;
  std::vector<scene::RibbonColor> uploaded_;
  std::vector<MeshPart> parts_;
  graphics::Box box_;
};

}  // namespace orivanta::render
