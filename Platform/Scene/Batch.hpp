// The children of one node merged into one vertex and one index array, so that a floor of many
// small parts is drawn in few calls.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta::scene {

/// Immutable, without GL; made on any thread. Owns the children and geometries that it was made of.
class ORIVANTA_API Batch {
 public:
  /// As it goes to the GPU.
  struct Vertex {
    float position[3];
    float normal[3];  ///< zero when not known
    float textureCoordinate[2];
    std::uint32_t part;  ///< index into `parts`
  };

  /// Those triangles of one element of one child that lie in one layer, at least one: a run of the
  /// indices that one material covers. No vertex belongs to two parts.
  struct Part {
    std::shared_ptr<Node> node;
    std::shared_ptr<Geometry> geometry;
    std::size_t element;  ///< of the geometry
    std::uint32_t firstIndex;
    std::uint32_t indexCount;
    graphics::Box box;       ///< in the parent's space
    bool isShell = false;    ///< see Shell.hpp; of the whole element
    std::uint8_t layer = 0;  ///< see Layers.hpp
  };

  struct Child {
    std::shared_ptr<Node> node;
    std::shared_ptr<Geometry> geometry;
    graphics::Vector3 position;
    graphics::Vector3 eulerAngles;
  };

  /// The children's geometries in the parent's space; null when the parent has fewer than two
  /// children with geometry. Children that have children of their own are left out.
  static std::shared_ptr<const Batch> make(const Node& parent);

  std::span<const Vertex> vertices() const { return vertices_; }
  std::span<const std::uint32_t> indices() const { return indices_; }

  /// By layers from 0 on, those of each layer in the order of the children.
  std::span<const Part> parts() const { return parts_; }

  /// The merged ones, in their order.
  std::span<const Child> children() const { return children_; }
  const graphics::Box& boundingBox() const { return boundingBox_; }

  /// Whether the parent's children still are those that the batch was made of, unmoved, in the
  /// same order. Cheap enough for every frame; materials and what is hidden play no part.
  bool matches(const Node& parent) const;

 private:
  Batch() = default;

  /// Whether a child is merged.
  static bool isMember(const Node& child);
  static std::vector<Child> membersOf(const Node& parent);

  /// `layers`: one a triangle.
  void splitParts(std::span<const std::uint8_t> layers);

  std::vector<Vertex> vertices_;
  std::vector<std::uint32_t> indices_;
  std::vector<Part> parts_;
  std::vector<Child> children_;
  graphics::Box boundingBox_;
};

}  // namespace orivanta::scene
