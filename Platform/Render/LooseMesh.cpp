#include "Platform/Render/LooseMesh.hpp"

#include <algorithm>
#include <cmath>
#include <functional>
#include <glm/geometric.hpp>
#include <glm/mat3x3.hpp>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Platform/Render/Projection.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Shell.hpp"

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

// The vertices that an element uses, without duplicates, in the order of first use. If `indices` is
// not null, it receives the element's indices into the result.
std::vector<std::uint32_t> usedVertices(const scene::GeometryElement& element,
                                        std::vector<std::uint32_t>* indices) {
  std::vector<std::uint32_t> used;
  std::unordered_map<std::uint32_t, std::uint32_t> places;
  const std::size_t count = element.indexCount() / 3 * 3;
  for (std::size_t i = 0; i < count; ++i) {
    const auto vertex = static_cast<std::uint32_t>(element.index(i));
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

// Sorts parts with a single color first, then by image, so that parts that can share a draw call
// are adjacent. Otherwise the order of the scene is kept.
void putInOrder(std::vector<LoosePart>& parts) {
  foundation::stableSort(parts.begin(), parts.end(), [](const LoosePart& a, const LoosePart& b) {
    if (a.look.image != b.look.image) return std::less<>()(a.look.image, b.look.image);
    return std::tuple(a.look.wrapS, a.look.wrapT) < std::tuple(b.look.wrapS, b.look.wrapT);
  });
}

bool haveSameShape(const scene::Geometry& a, const scene::Geometry& b) {
  const auto areAlike = [](const scene::GeometrySource& one, const scene::GeometrySource& other) {
    return one.data == other.data && one.semantic == other.semantic &&
           one.dataOffset == other.dataOffset && one.dataStride == other.dataStride;
  };
  return &a == &b || (std::equal(a.sources().begin(), a.sources().end(), b.sources().begin(),
                                 b.sources().end(), areAlike) &&
                      a.elements().size() == b.elements().size() &&
                      a.elements().front().data == b.elements().front().data);
}

// Whether both parts look exactly the same in the same place.
bool covers(const LoosePart& a, const LoosePart& b) {
  const auto isPlain = [](const PartLook& look) { return !look.translucent && !look.image; };
  return a.world == b.world && a.element == 0 && b.element == 0 && isPlain(a.look) &&
         isPlain(b.look) && a.look.color == b.look.color && a.look.visible == b.look.visible &&
         a.look.castsShadow == b.look.castsShadow && a.look.group == b.look.group &&
         haveSameShape(*a.geometry, *b.geometry);
}

// Consecutive segments of a route have equal caps, a few parts apart from each other.
void dropDuplicates(std::vector<LoosePart>& parts) {
  constexpr std::size_t reach = 16;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto end = parts.begin() + static_cast<std::ptrdiff_t>(kept);
    const auto begin = end - static_cast<std::ptrdiff_t>(std::min(kept, reach));
    if (std::any_of(begin, end, [&](const LoosePart& other) { return covers(other, parts[i]); }))
      continue;
    if (kept != i) parts[kept] = std::move(parts[i]);
    ++kept;
  }
  parts.resize(kept);
}

}  // namespace

float invisibleTolerance(std::span<const LoosePart> parts, const Matrix4& view,
                         const Matrix4& projection, int height) {
  float nearest = std::numeric_limits<float>::max();
  for (const LoosePart& part : parts) {
    if (!part.geometry->simplification()) continue;
    const graphics::Box& box = part.geometry->boundingBox();
    const Vector3 center = view * (part.world * graphics::Vector4(box.center(), 1.0F));
    nearest = std::min(nearest, -center.z - glm::length(box.max - box.min) / 2);
  }
  const float pixel = unitsPerPixel(std::max(nearest, nearPlane(projection)), projection, height);
  return std::exp2(std::floor(2 * std::log2(pixel / 3)) / 2);
}

void LooseMesh::update(std::vector<LoosePart> parts, float tolerance, FrameStatistics& statistics) {
  dropDuplicates(parts);
  putInOrder(parts);
  if (std::exchange(tolerance_, tolerance) != tolerance && !merged_.empty())
    rebuildFrom(0, parts, statistics);
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
  for (std::size_t i = 0; i < merged_.size(); ++i)
    meshParts.push_back({static_cast<std::uint32_t>(merged_[i].firstIndex),
                         static_cast<std::uint32_t>(indicesOf(i).size()), merged_[i].box,
                         merged_[i].isShell});
  if (!mesh_) mesh_.emplace();
  mesh_->setGeometry(vertices_, indices_, std::move(meshParts), unchangedVertices, unchangedIndices,
                     statistics);
}

std::span<const std::uint32_t> LooseMesh::indicesOf(std::size_t place) const {
  const std::size_t first = merged_[place].firstIndex;
  const std::size_t end =
      place + 1 < merged_.size() ? merged_[place + 1].firstIndex : indices_.size();
  return std::span(indices_).subspan(first, end - first);
}

void LooseMesh::append(const LoosePart& part) {
  const std::size_t firstVertex = vertices_.size();
  const std::size_t firstIndex = indices_.size();
  const auto& simplify = part.geometry->simplification();
  auto drawn = simplify && part.element == 0 ? simplify(tolerance_) : nullptr;
  if (!drawn) drawn = part.geometry;
  if (drawn->source(scene::Semantic::vertex) != nullptr) {
    const auto used = usedVertices(drawn->elements()[part.element], &indices_);
    for (std::size_t i = firstIndex; i < indices_.size(); ++i)
      indices_[i] += static_cast<std::uint32_t>(firstVertex);
    for (const std::uint32_t vertex : used)
      vertices_.push_back(makeVertex(*drawn, vertex, part.world, merged_.size()));
  }
  merged_.push_back({part.geometry, std::move(drawn), part.element, part.world, firstVertex,
                     vertices_.size() - firstVertex, firstIndex,
                     boxOf(std::span(vertices_).subspan(firstVertex)),
                     scene::isShell(vertices_, std::span(indices_).subspan(firstIndex))});
}

void LooseMesh::move(std::size_t place, const Matrix4& world, FrameStatistics& statistics) {
  Merged& merged = merged_[place];
  const bool isShifted = glm::mat3(merged.world) == glm::mat3(world);
  merged.world = world;
  if (merged.vertexCount == 0) return;
  const auto used = usedVertices(merged.drawn->elements()[merged.element], nullptr);
  const auto moved = std::span(vertices_).subspan(merged.firstVertex, merged.vertexCount);
  for (std::size_t i = 0; i < used.size(); ++i)
    moved[i] = makeVertex(*merged.drawn, used[i], world, place);
  merged.box = boxOf(moved);
  if (!isShifted) merged.isShell = scene::isShell(vertices_, indicesOf(place));
  mesh_->setPlace(place, merged.box, merged.isShell);
  mesh_->setVertices(merged.firstVertex, moved, statistics);
}

}  // namespace orivanta::render
