// Merges the geometries of single nodes, so that hundreds of small ones take few draw calls.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Render/Mesh.hpp"
#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// Holds vertices in the scene's space. If a list of parts begins like the previous one, that part
/// of the mesh is kept. If a node has only moved, only its vertices are replaced.
class LooseMesh {
 public:
  /// Merges the parts in drawing order and stores their looks. Duplicates of equal parts in the
  /// same place are dropped. Shapes with simpler versions within `tolerance` units are drawn as
  /// those. If the tolerance differs from the last call, everything is merged again.
  void update(std::vector<LoosePart> parts, float tolerance, FrameStatistics& statistics);

  bool isEmpty() const { return merged_.empty(); }
  const Mesh& mesh() const { return *mesh_; }
  std::span<const PartLook> looks() const { return looks_; }

 private:
  struct Merged {
    std::shared_ptr<const scene::Geometry> geometry;
    std::shared_ptr<const scene::Geometry> drawn;  ///< `geometry` or a simpler version
    std::size_t element;
    graphics::Matrix4 world;
    std::size_t firstVertex;
    std::size_t vertexCount;
    std::size_t firstIndex;
    graphics::Box box;
    bool isShell;

    bool isOf(const LoosePart& part) const {
      return geometry == part.geometry && element == part.element;
    }
  };

  void rebuildFrom(std::size_t first, const std::vector<LoosePart>& parts,
                   FrameStatistics& statistics);
  std::span<const std::uint32_t> indicesOf(std::size_t place) const;
  void append(const LoosePart& part);
  void move(std::size_t place, const graphics::Matrix4& world, FrameStatistics& statistics);

  std::optional<Mesh> mesh_;
  std::vector<Merged> merged_;
  std::vector<Mesh::Vertex> vertices_;
  std::vector<std::uint32_t> indices_;
  std::vector<PartLook> looks_;
  float tolerance_ = 0.0F;
};

/// How far, in scene units, drawn shapes may deviate from the exact ones without a visible
/// difference: a third of a pixel at the nearest part, in a frame of `height` pixels, rounded down
/// to a power of the square root of two so that it rarely changes.
float invisibleTolerance(std::span<const LoosePart> parts, const graphics::Matrix4& view,
                         const graphics::Matrix4& projection, int height);

}  // namespace orivanta::render
