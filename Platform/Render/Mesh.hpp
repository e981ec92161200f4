// Triangles on the GPU whose parts each have a color and a texture placement of their own.
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

/// Colors lie in one small texture and placements in another, one place a part, where the vertex
/// shader fetches them: another color is one texel uploaded, and parts of different colors are
/// drawn in one call. What has not changed is not uploaded again.
class Mesh {
 public:
  using Vertex = scene::Batch::Vertex;

  static constexpr GLsizei partsPerRow = 256;

  Mesh();

  /// Takes over the whole of the geometry, of which vertices and indices before the given places
  /// are those that were handed over last.
  void setGeometry(std::span<const Vertex> vertices, std::span<const std::uint32_t> indices,
                   std::vector<MeshPart> parts, std::size_t unchangedVertices,
                   std::size_t unchangedIndices, FrameStatistics& statistics);

  /// Replaces some vertices; where their parts are is the caller's to update.
  void setVertices(std::size_t first, std::span<const Vertex> vertices,
                   FrameStatistics& statistics);
  void setPlace(std::size_t part, const graphics::Box& box, bool isShell) {
    parts_[part].box = box;
    parts_[part].isShell = isShell;
  }

  /// One look for each part.
  void setLooks(std::span<const PartLook> looks, FrameStatistics& statistics);

  std::span<const MeshPart> parts() const { return parts_; }

  /// Differs from that of every other mesh, and from its own before a change of geometry.
  std::uint64_t revision() const { return revision_; }

  /// Ready to draw: the colors at texture unit 0, the placements at unit 1.
  void bind() const;

  /// The mesh is bound.
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
