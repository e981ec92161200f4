// The geometries of single nodes, merged so that hundreds of small ones are drawn in few calls.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "Platform/Render/Mesh.hpp"
#include "Platform/Render/SceneSnapshot.hpp"

namespace orivanta::render {

/// Holds vertices in the scene's space. A list that begins as the last one did keeps that part of
/// its mesh; a node that only moved has its own vertices replaced.
class LooseMesh {
 public:
  /// Puts the parts into the order in which they are merged, and their looks into `looks`; one that
  /// lies exactly on another that looks the same is left out. Shapes
  /// that have simpler ones within `tolerance` units are drawn as those; another tolerance than the
  /// last one merges everything anew.
  void update(std::vector<LoosePart> parts, float tolerance, FrameStatistics& statistics);

  bool isEmpty() const { return merged_.empty(); }
  const Mesh& mesh() const { return *mesh_; }
  std::span<const PartLook> looks() const { return looks_; }

 private:
  struct Merged {
    std::shared_ptr<const scene::Geometry> geometry;
    std::shared_ptr<const scene::Geometry> drawn;  ///< the same or a simpler one
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

/// How far from their shapes parts may be drawn so that it shows nowhere, in scene units: a third
/// of a pixel of a picture `height` pixels high where the nearest part lies, cut to a power of the
/// square root of two so that it seldom changes.
float invisibleTolerance(std::span<const LoosePart> parts, const graphics::Matrix4& view,
                         const graphics::Matrix4& projection, int height);

}  // namespace orivanta::render
