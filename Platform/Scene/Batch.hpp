// The children of a node merged into one vertex and one index array, so that a floor with many
// small parts takes few draw calls.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta::scene {

/// Immutable and independent of OpenGL. Can be made on any thread. Owns the children and geometries
/// that it was made from.
class ORIVANTA_API Batch {
 public:
  /// The layout in GPU memory.
  struct Vertex {
    float position[3];
    float normal[3];  ///< zero if unknown
    float textureCoordinate[2];
    std::uint32_t part;  ///< index into `parts`
  };

  /// The triangles of one element of one child that lie in one layer, at least one: a range of the
  /// indices with one material. No vertex belongs to two parts.
  struct Part {
    std::shared_ptr<Node> node;
    std::shared_ptr<Geometry> geometry;
    std::size_t element;  ///< index in the geometry
    std::uint32_t firstIndex;
    std::uint32_t indexCount;
    graphics::Box box;       ///< in the parent's space
    bool isShell = false;    ///< see Shell.hpp; for the whole element
    std::uint8_t layer = 0;  ///< see Layers.hpp
  };

  struct Child {
    std::shared_ptr<Node> node;
    std::shared_ptr<Geometry> geometry;
    graphics::Vector3 position;
    graphics::Vector3 eulerAngles;
  };

  /// Merges the children's geometries, in the parent's space. Children that have children
  /// themselves are skipped. Returns null if fewer than two children have geometry.
  static std::shared_ptr<const Batch> make(const Node& parent);

  std::span<const Vertex> vertices() const { return vertices_; }
  std::span<const std::uint32_t> indices() const { return indices_; }

  /// Sorted by layer from 0; within a layer in the order of the children.
  std::span<const Part> parts() const { return parts_; }

  /// The merged children in their original order.
  std::span<const Child> children() const { return children_; }
  const graphics::Box& boundingBox() const { return boundingBox_; }

  /// Whether the parent still has the children that the batch was made from, unmoved and in the
  /// same order. Fast enough for every frame; ignores materials and hidden flags.
  bool matches(const Node& parent) const;

 private:
  Batch() = default;

  /// Whether a child is part of batches.
  static bool isMember(const Node& child);
  static std::vector<Child> membersOf(const Node& parent);

  /// `layers` has one entry per triangle.
  void splitParts(std::span<const std::uint8_t> layers);

  std::vector<Vertex> vertices_;
  std::vector<std::uint32_t> indices_;
  std::vector<Part> parts_;
  std::vector<Child> children_;
  graphics::Box boundingBox_;
};

}  // namespace orivanta::scene
