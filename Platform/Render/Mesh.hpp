// Triangles on the GPU, grouped into parts that each have a color and a texture placement.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "Platform/Render/DrawRuns.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/Render/Gl.hpp"
#include "Platform/Render/PartLook.hpp"
#include "Platform/Scene/Batch.hpp"

namespace orivanta::render {

/// Colors and placements are stored in two small textures, with one entry per part, which the
/// vertex shader reads. Changing a color therefore uploads one texel, and parts of different colors
/// can share a draw call. Unchanged data is not uploaded again.
class Mesh {
 public:
  using Vertex = scene::Batch::Vertex;

  static constexpr GLsizei partsPerRow = 256;

  Mesh();

  /// Sets the whole geometry. The vertices and indices before the given positions must be the same
  /// as in the last call.
  void setGeometry(std::span<const Vertex> vertices, std::span<const std::uint32_t> indices,
                   std::vector<MeshPart> parts, std::size_t unchangedVertices,
                   std::size_t unchangedIndices, FrameStatistics& statistics);

  /// Replaces some vertices. The caller updates the bounding boxes of their parts.
  void setVertices(std::size_t first, std::span<const Vertex> vertices,
                   FrameStatistics& statistics);
  void setPlace(std::size_t part, const graphics::Box& box, bool isShell) {
    parts_[part].box = box;
    parts_[part].isShell = isShell;
  }

  /// One look per part.
  void setLooks(std::span<const PartLook> looks, FrameStatistics& statistics);

  std::span<const MeshPart> parts() const { return parts_; }

  /// Unique among all meshes; changes when the geometry changes.
  std::uint64_t revision() const { return revision_; }

  /// Binds everything for drawing, with the colors at texture unit 0 and the placements at unit 1.
  void bind() const;

  /// The mesh must be bound.
  static void draw(std::span<const Run> runs, FrameStatistics& statistics);

 private:
  struct Capacity {
    std::size_t vertices = 0;
    std::size_t indices = 0;
    std::size_t parts = 0;
  };

  void growTextures(std::size_t parts);
  void uploadColors(std::size_t first, std::size_t end, FrameStatistics& statistics);
  void uploadPlacements(std::size_t first, std::size_t end, FrameStatistics& statistics);

  gl::VertexArray vertexArray_;
  gl::Buffer vertices_;
  gl::Buffer indices_;
  gl::Texture colors_;
  gl::Texture placements_;
  Capacity capacity_;
  std::vector<MeshPart> parts_;
  std::vector<Texel> uploadedColors_;
  std::vector<Placement> uploadedPlacements_;
  std::uint64_t revision_ = 0;
};

}  // namespace orivanta::render
