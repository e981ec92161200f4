// Shapes made of triangles: vertex data and the elements that refer to it, both shared by handle.
// Public header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta::scene {

/// Bytes that several geometries refer to; never copied, never changed.
using SharedBytes = std::shared_ptr<const std::vector<std::byte>>;

/// What a vertex attribute means.
enum class Semantic {
  vertex,            ///< position: x, y, z
  normal,            ///< unit vector: x, y, z
  textureCoordinate  ///< u to the right, v up
};

/// One attribute of every vertex: vector i lies at byte `dataOffset + i * dataStride` of the data.
/// Components are little-endian IEEE floats of 4 bytes.
struct GeometrySource {
  SharedBytes data;                      ///< may hold other attributes too
  Semantic semantic = Semantic::vertex;  ///< what the attribute means
  std::size_t vectorCount = 0;           ///< the number of vertices
  std::size_t componentsPerVector = 3;   ///< floats for each vertex
  std::size_t bytesPerComponent = 4;     ///< always 4
  std::size_t dataOffset = 0;            ///< of the first vector, bytes
  std::size_t dataStride = 12;           ///< from one vector to the next, bytes

  /// Components 0 to 2 of vector `index`, missing ones 0. An index outside the source, or data
  /// too short for it, is a fatal error.
  ORIVANTA_API graphics::Vector3 vector(std::size_t index) const;
};

/// Triangles: three indices each, little-endian and unsigned.
struct GeometryElement {
  SharedBytes data;               ///< the indices, one after the other
  std::size_t bytesPerIndex = 4;  ///< 1, 2, 4 or 8

  ORIVANTA_API std::size_t indexCount() const;  ///< whole indices in the data
  /// The index at a position, which is below `indexCount`; otherwise a fatal error.
  ORIVANTA_API std::uint64_t index(std::size_t position) const;
};

class Geometry;

/// What vertices hold besides their positions.
struct VertexContents {
  bool normals = true;             ///< whether normals are known
  bool textureCoordinates = true;  ///< whether texture coordinates are known
};

/// Makes the same shape with fewer triangles, nowhere further than `tolerance` units from the one
/// that it stands for; null when there is none. Any thread.
using Simplification = std::function<std::shared_ptr<const Geometry>(float tolerance)>;

/// Vertices, elements and materials. Sources and elements never change; the list of materials may,
/// under a `graphics::Transaction`. Element i is drawn with material i modulo their number, or
/// with a white one when there is none.
class ORIVANTA_API Geometry {
 public:
  /// Indices must lie inside the sources and fit in 32 bits. Any other is a fatal error.
  static std::shared_ptr<Geometry> make(std::vector<GeometrySource> sources,
                                        std::vector<GeometryElement> elements);

  /// Vertices of 32 bytes each, as floats: position, normal, texture coordinate (u to the right, v
  /// up). A zero normal stands for one that is not known. What the vertices do not hold gets no
  /// source; its bytes are there all the same.
  static std::shared_ptr<Geometry> make(SharedBytes vertices, std::vector<GeometryElement> elements,
                                        VertexContents contents = {});

  /// The attributes of the vertices.
  const std::vector<GeometrySource>& sources() const { return sources_; }

  /// The triangles, in the order in which they are drawn.
  const std::vector<GeometryElement>& elements() const { return elements_; }

  /// The first source with a semantic; null without one.
  const GeometrySource* source(Semantic semantic) const;

  /// The materials, in the order of the elements.
  std::vector<std::shared_ptr<Material>> materials() const;

  /// Replaces all materials.
  void setMaterials(std::vector<std::shared_ptr<Material>> materials);

  /// Null without a material.
  std::shared_ptr<Material> firstMaterial() const;

  /// For whoever draws the geometry so small that the difference does not show. Set before the
  /// geometry is shared; none until then.
  void setSimplification(Simplification simplification) {
    simplification_ = std::move(simplification);
  }

  /// Empty if none was set.
  const Simplification& simplification() const { return simplification_; }

  /// The box of the vertices that the elements refer to; empty without any.
  const graphics::Box& boundingBox() const { return boundingBox_; }

 private:
  Geometry(std::vector<GeometrySource> sources, std::vector<GeometryElement> elements);

  std::vector<GeometrySource> sources_;
  std::vector<GeometryElement> elements_;
  graphics::Box boundingBox_;
  Simplification simplification_;
  std::vector<std::shared_ptr<Material>> materials_;
};

}  // namespace orivanta::scene
