#include "Platform/Render/LooseMesh.hpp"

#include <algorithm>
#include <functional>
#include <glm/geometric.hpp>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "Platform/Scene/Geometry.hpp"

namespace orivanta::render {

namespace {

using graphics::Matrix4;
using graphics::Vector3;

void write(float (&target)[3], const Vector3& vector) {
  target[0] = vector.x;
  target[1] = vector.y;
  target[2] = vector.z;
}

Mesh::Vertex makeVertex(const scene::Geometry& geometry, std::size_t index, const Matrix4& world,
                        std::size_t part) {
  const auto* positions = geometry.source(scene::Semantic::vertex);
  const auto* normals = geometry.source(scene::Semantic::normal);
  const auto* points = geometry.source(scene::Semantic::textureCoordinate);
  Mesh::Vertex vertex{};
  write(vertex.position, Vector3(world * graphics::Vector4(positions->vector(index), 1.0F)));
  if (normals != nullptr && index < normals->vectorCount)
    write(vertex.normal, Vector3(world * graphics::Vector4(normals->vector(index), 0.0F)));
  if (points != nullptr && index < points->vectorCount) {
    const Vector3 point = points->vector(index);
    vertex.textureCoordinate[0] = point.x;
    vertex.textureCoordinate[1] = point.y;
  }
  vertex.part = static_cast<std::uint32_t>(part);
  return vertex;
}

// The vertices that an element uses, each once, in the order of their first use; `indices`, when
// asked for, are where the element's indices find them.
std::vector<std::uint32_t> usedVertices(const scene::GeometryElement& element,
                                        std::vector<std::uint32_t>* indices) {
  std::vector<std::uint32_t> used;
  std::unordered_map<std::uint32_t, std::uint32_t> places;
  const std::size_t count = element.indexCount() / 3 * 3;
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t vertex = element.index(i);
    const auto [place, isNew] = places.insert({vertex, static_cast<std::uint32_t>(used.size())});
    if (isNew) used.push_back(vertex);
    if (indices != nullptr) indices->push_back(place->second);
  }
  return used;
}

graphics::Box boxOf(std::span<const Mesh::Vertex> vertices) {
  graphics::Box box;
  for (const auto& vertex : vertices)
    box.add(Vector3(vertex.position[0], vertex.position[1], vertex.position[2]));
  return box;
}

// Parts of one colour first, then image by image, so that those which one call can draw lie side
// by side; otherwise as the scene has them.
void putInOrder(std::vector<LoosePart>& parts) {
  std::stable_sort(parts.begin(), parts.end(), [](const LoosePart& a, const LoosePart& b) {
    if (a.look.image != b.look.image) return std::less<>()(a.look.image, b.look.image);
    return std::tuple(a.look.wrapS, a.look.wrapT) < std::tuple(b.look.wrapS, b.look.wrapT);
  });
}

}  // namespace

void LooseMesh::update(std::vector<LoosePart> parts, FrameStatistics& statistics) {
  putInOrder(parts);
  std::size_t same = 0;
  while (same < parts.size() && same < merged_.size() && merged_[same].isOf(parts[same])) ++same;
  if (same < parts.size() || same < merged_.size()) rebuildFrom(same, parts, statistics);
  for (std::size_t i = 0; i < same; ++i)
    if (merged_[i].world != parts[i].world) move(i, parts[i].world, statistics);

  looks_.clear();
  for (auto& part : parts) looks_.push_back(std::move(part.look));
  if (mesh_) mesh_->setLooks(looks_, statistics);
}

void LooseMesh::rebuildFrom(std::size_t first, const std::vector<LoosePart>& parts,
                            FrameStatistics& statistics) {
  if (first < merged_.size()) {
    vertices_.resize(merged_[first].firstVertex);
    indices_.resize(merged_[first].firstIndex);
    merged_.resize(first);
  }
  const std::size_t unchangedVertices = vertices_.size();
  const std::size_t unchangedIndices = indices_.size();
  for (std::size_t i = first; i < parts.size(); ++i) append(parts[i]);

  std::vector<MeshPart> meshParts;
  for (std::size_t i = 0; i < merged_.size(); ++i) {
    const std::size_t end = i + 1 < merged_.size() ? merged_[i + 1].firstIndex : indices_.size();
    meshParts.push_back({static_cast<std::uint32_t>(merged_[i].firstIndex),
                         static_cast<std::uint32_t>(end - merged_[i].firstIndex), merged_[i].box});
  }
  if (!mesh_) mesh_.emplace();
  mesh_->setGeometry(vertices_, indices_, std::move(meshParts), unchangedVertices, unchangedIndices,
                     statistics);
}

void LooseMesh::append(const LoosePart& part) {
  const std::size_t firstVertex = vertices_.size();
  const std::size_t firstIndex = indices_.size();
  if (part.geometry->source(scene::Semantic::vertex) != nullptr) {
    const auto used = usedVertices(part.geometry->elements()[part.element], &indices_);
    for (std::size_t i = firstIndex; i < indices_.size(); ++i)
      indices_[i] += static_cast<std::uint32_t>(firstVertex);
    for (const std::uint32_t vertex : used)
      vertices_.push_back(makeVertex(*part.geometry, vertex, part.world, merged_.size()));
  }
  merged_.push_back({part.geometry, part.element, part.world, firstVertex,
                     vertices_.size() - firstVertex, firstIndex,
                     boxOf(std::span(vertices_).subspan(firstVertex))});
}

void LooseMesh::move(std::size_t place, const Matrix4& world, FrameStatistics& statistics) {
  Merged& merged = merged_[place];
  merged.world = world;
  if (merged.vertexCount == 0) return;
  const auto used = usedVertices(merged.geometry->elements()[merged.element], nullptr);
  const auto moved = std::span(vertices_).subspan(merged.firstVertex, merged.vertexCount);
  for (std::size_t i = 0; i < used.size(); ++i)
    moved[i] = makeVertex(*merged.geometry, used[i], world, place);
  merged.box = boxOf(moved);
  mesh_->setBox(place, merged.box);
  mesh_->setVertices(merged.firstVertex, moved, statistics);
}

}  // namespace orivanta::render
