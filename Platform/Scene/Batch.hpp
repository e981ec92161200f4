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

  /// Returns a batch for a node whose children are copies of the merged children: with the same
  /// geometries, positions and rotations in the same order, but with looks of their own. It shares
  /// the arrays of this batch. Returns null if the children differ.
  std::shared_ptr<const Batch> adopted(const Node& copy) const;

  std::span<const Vertex> vertices() const { return data_->vertices; }
  std::span<const std::uint32_t> indices() const { return data_->indices; }

  /// The owner of the arrays, the same object for all batches that share them.
  std::shared_ptr<const void> data() const { return data_; }

  /// Sorted by layer from 0; within a layer in the order of the children.
  std::span<const Part> parts() const { return parts_; }

  /// The merged children in their original order.
  std::span<const Child> children() const { return children_; }
  const graphics::Box& boundingBox() const { return boundingBox_; }

  /// Whether the parent still has the children that the batch was made from, unmoved and in the
  /// same order. Fast enough for every frame; ignores materials and hidden flags.
  bool matches(const Node& parent) const;

 private:
  struct Data {
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
  };

  Batch() = default;
  Batch(const Batch&) = default;

  /// Whether a child is part of batches.
  static bool isMember(const Node& child);
  static std::vector<Child> membersOf(const Node& parent);

  /// `layers` has one entry per triangle.
  void splitParts(Data& data, std::span<const std::uint8_t> layers);

  std::shared_ptr<const Data> data_;
  std::vector<Part> parts_;
  std::vector<Child> children_;
  graphics::Box boundingBox_;
};

}  // namespace orivanta::scene
