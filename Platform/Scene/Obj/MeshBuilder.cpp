#include "Platform/Scene/Obj/MeshBuilder.hpp"

#include <algorithm>
#include <cmath>
#include <span>

#include "Platform/Scene/Obj/FaceCutter.hpp"

namespace orivanta::scene::obj {

namespace {

// The tip of a cone may have thousands of normals. New vertices are compared only with this many
// recent ones at the same position.
constexpr int mostComparedVertices = 64;

class MeshBuilder {
 public:
  explicit MeshBuilder(ModelStatements& statements)
      : statements_(statements),
        newest_(statements.positions.size(), none),
        groups_(statements.materialNames.size(), none) {
    model_.skippedFaces = statements.skippedFaces;
    // A corner of a room has one vertex for the floor and one for each of two walls.
    const std::size_t expectedVertices =
        std::min(statements.corners.size(), 3 * statements.positions.size());
    model_.vertices.reserve(expectedVertices);
    origins_.reserve(expectedVertices);
  }

  Model build() {
    countIndices();
    std::size_t face = 0;
    std::size_t corner = 0;
    for (const FaceRun& run : statements_.runs) {
      for (const std::size_t end = face + run.faceCount; face < end; ++face) {
        const std::uint32_t count = statements_.cornerCounts[face];
        addFace(run.material, std::span(statements_.corners).subspan(corner, count));
        corner += count;
      }
    }
    return std::move(model_);
  }

 private:
  // What a vertex was made from, and the previous vertex at the same position.
  struct Origin {
    std::uint32_t textureCoordinate;
    std::uint32_t normal;
    std::uint32_t older;
  };

  // Computes an upper bound of the indices, so that each group allocates memory once.
  void countIndices() {
    indexCounts_.resize(statements_.materialNames.size());
    std::size_t face = 0;
    for (const FaceRun& run : statements_.runs)
      for (const std::size_t end = face + run.faceCount; face < end; ++face)
        indexCounts_[run.material] += 3 * (std::size_t{statements_.cornerCounts[face]} - 2);
  }

  void addFace(std::uint32_t material, std::span<Corner> corners) {
    if (!std::all_of(corners.begin(), corners.end(),
                     [this](const Corner& corner) { return isUsable(corner); })) {
      ++model_.skippedFaces;
      return;
    }
    points_.clear();
    for (const Corner& corner : corners) points_.push_back(statements_.positions[corner.position]);
    const auto triangles = cutter_.cut(points_);
    if (triangles.empty()) return;
    vertices_.clear();
    for (const Corner& corner : corners) vertices_.push_back(vertexOf(corner));
    auto& indices = groupOf(material).indices;
    for (const std::uint32_t corner : triangles) indices.push_back(vertices_[corner]);
  }

  bool isUsable(const Corner& corner) const {
    const auto isIn = [](std::uint32_t index, const auto& list) {
      return index == none || index < list.size();
    };
    return corner.position < statements_.positions.size() &&
           !std::isnan(statements_.positions[corner.position][0]) &&
           isIn(corner.textureCoordinate, statements_.textureCoordinates) &&
           isIn(corner.normal, statements_.normals);
  }

  std::uint32_t vertexOf(const Corner& corner) {
    std::uint32_t& newest = newest_[corner.position];
    std::uint32_t vertex = newest;
    for (int i = 0; vertex != none && i < mostComparedVertices; ++i) {
      const Origin& origin = origins_[vertex];
      if (origin.normal == corner.normal && origin.textureCoordinate == corner.textureCoordinate)
        return vertex;
      vertex = origin.older;
    }
    Vertex made{statements_.positions[corner.position], {}, {}};
    if (corner.normal != none) made.normal = statements_.normals[corner.normal];
    if (made.normal == Point{})
      model_.hasNormals = false;
    else
      model_.hasAnyNormals = true;
    if (corner.textureCoordinate != none) {
      made.textureCoordinate = statements_.textureCoordinates[corner.textureCoordinate];
      model_.hasTextureCoordinates = true;
    }
    vertex = static_cast<std::uint32_t>(model_.vertices.size());
    model_.vertices.push_back(made);
    origins_.push_back({corner.textureCoordinate, corner.normal, newest});
    newest = vertex;
    return vertex;
  }

  Group& groupOf(std::uint32_t material) {
    std::uint32_t& group = groups_[material];
    if (group == none) {
      group = static_cast<std::uint32_t>(model_.groups.size());
      Group& made = model_.groups.emplace_back();
      made.material.name = statements_.materialNames[material];
      made.indices.reserve(indexCounts_[material]);
    }
    return model_.groups[group];
  }

  ModelStatements& statements_;
  Model model_;
  FaceCutter cutter_;
  std::vector<Point> points_;             // of a face
  std::vector<std::uint32_t> vertices_;   // of a face
  std::vector<std::uint32_t> newest_;     // newest vertex by position
  std::vector<Origin> origins_;           // by vertex
  std::vector<std::uint32_t> groups_;     // by material
  std::vector<std::size_t> indexCounts_;  // by material
};

}  // namespace

Model buildMesh(ModelStatements& statements) { return MeshBuilder(statements).build(); }

}  // namespace orivanta::scene::obj
