// Triangle geometry: vertex data, and elements that refer to it. Both are held by shared pointers.
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

/// Bytes that several geometries may share. They are never copied or changed.
using SharedBytes = std::shared_ptr<const std::vector<std::byte>>;

/// The meaning of a vertex attribute.
enum class Semantic {
  vertex,            ///< position: x, y, z
  normal,            ///< unit vector: x, y, z
  textureCoordinate  ///< u to the right, v up
};

/// One attribute of all vertices. Vector i begins at byte `dataOffset + i * dataStride` of the
/// data. Components are little-endian IEEE floats of 4 bytes.
struct GeometrySource {
  SharedBytes data;                      ///< may also contain other attributes
  Semantic semantic = Semantic::vertex;  ///< the meaning of the attribute
  std::size_t vectorCount = 0;           ///< the number of vertices
  std::size_t componentsPerVector = 3;   ///< floats for each vertex
  std::size_t bytesPerComponent = 4;     ///< always 4
  std::size_t dataOffset = 0;            ///< of the first vector, bytes
  std::size_t dataStride = 12;           ///< from one vector to the next, bytes

  /// Returns components 0 to 2 of vector `index`. Missing components are 0. An index outside the
  /// source is a fatal error, and so is data that is too short for it.
  ORIVANTA_API graphics::Vector3 vector(std::size_t index) const;
};

/// A list of triangles. Each has three little-endian unsigned indices.
struct GeometryElement {
  SharedBytes data;               ///< the indices, one after the other
  std::size_t bytesPerIndex = 4;  ///< 1, 2, 4 or 8

  ORIVANTA_API std::size_t indexCount() const;  ///< number of complete indices in the data
  /// Returns the index at a position. A position not less than `indexCount` is a fatal error.
  ORIVANTA_API std::uint64_t index(std::size_t position) const;
};

class Geometry;

/// The vertex attributes that are present besides the position.
struct VertexContents {
  bool normals = true;             ///< whether normals are present
  bool textureCoordinates = true;  ///< whether texture coordinates are present
};

/// Returns the same shape with fewer triangles, or null if there is none. The result is nowhere
/// more than `tolerance` units away from the original shape. Any thread.
using Simplification = std::function<std::shared_ptr<const Geometry>(float tolerance)>;

/// Vertices, elements and materials. Sources and elements never change; the list of materials may
/// change, under a `graphics::Transaction`. Element i is drawn with material i modulo the number of
/// materials, or with a white material if there is none.
class ORIVANTA_API Geometry {
 public:
  /// Creates a geometry. An index that is outside the sources or does not fit in 32 bits is a fatal
  /// error.
  static std::shared_ptr<Geometry> make(std::vector<GeometrySource> sources,
                                        std::vector<GeometryElement> elements);

  /// Creates a geometry from vertices of 32 bytes each. Each vertex consists of floats: position,
  /// normal, texture coordinate (u to the right, v up). A zero normal means that the normal is
  /// unknown. An attribute that is not present according to `contents` gets no source, but the
  /// vertices still contain its bytes.
  static std::shared_ptr<Geometry> make(SharedBytes vertices, std::vector<GeometryElement> elements,
                                        VertexContents contents = {});

  /// Returns the attributes of the vertices.
  const std::vector<GeometrySource>& sources() const { return sources_; }

  /// Returns the triangles in drawing order.
  const std::vector<GeometryElement>& elements() const { return elements_; }

  /// Returns the first source with this semantic, or null if there is none.
  const GeometrySource* source(Semantic semantic) const;

  /// Returns the materials in the order of the elements.
  std::vector<std::shared_ptr<Material>> materials() const;

  /// Replaces all materials.
  void setMaterials(std::vector<std::shared_ptr<Material>> materials);

  /// Returns the first material, or null if there is none.
  std::shared_ptr<Material> firstMaterial() const;

  /// Sets a function that provides simplified versions of the geometry. A renderer uses them if the
  /// geometry is drawn so small that the difference is not visible. Call it before the geometry is
  /// shared.
  void setSimplification(Simplification simplification) {
    simplification_ = std::move(simplification);
  }

  /// Returns the simplification. It is empty until set.
  const Simplification& simplification() const { return simplification_; }

  /// Returns the bounding box of the vertices that the elements refer to. It is empty if there are
  /// none.
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
