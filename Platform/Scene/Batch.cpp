#include "Platform/Scene/Batch.hpp"

#include <algorithm>
#include <glm/mat3x3.hpp>
#include <unordered_map>
#include <utility>

#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Layers.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/Scene/Rigid.hpp"
#include "Platform/Scene/Shell.hpp"

namespace orivanta::scene {

using graphics::Matrix4;
using graphics::Vector3;

namespace {

/// Maps the vertices of a geometry to those of the batch for the current part. One table serves all
/// parts; entries of other parts are ignored.
class VertexMap {
 public:
  /// Returns the entry for a vertex and whether it is new. A new entry is set to `next`.
  std::pair<std::uint32_t, bool> find(std::uint32_t vertex, std::uint32_t part,
                                      std::uint32_t next) {
    if (vertex >= entries_.size()) entries_.resize(std::size_t{vertex} + 1);
    Entry& entry = entries_[vertex];
    const bool isNew = entry.part != part + std::size_t{1};
    if (isNew) entry = {part + std::size_t{1}, next};
    return {entry.vertex, isNew};
  }

 private:
  struct Entry {
    std::size_t part = 0;  ///< counted from 1
    std::uint32_t vertex = 0;
  };
  std::vector<Entry> entries_;
};

/// The attributes of a geometry, in the space of the node's parent.
struct Attributes {
  const GeometrySource* positions;
  const GeometrySource* normals;
  const GeometrySource* textureCoordinates;
  Matrix4 transform;
  glm::mat3 turn;

  Attributes(const Geometry& geometry, const Matrix4& toParent)
      : positions(geometry.source(Semantic::vertex)),
        normals(geometry.source(Semantic::normal)),
        textureCoordinates(geometry.source(Semantic::textureCoordinate)),
        transform(toParent),
        turn(toParent) {}

  /// The part is not set.
  Batch::Vertex vertex(std::uint32_t index) const {
    const Vector3 position = transformPoint(transform, positions->vector(index));
    const Vector3 normal = normals ? turn * normals->vector(index) : Vector3(0.0F);
    const Vector3 texture = textureCoordinates ? textureCoordinates->vector(index) : Vector3(0.0F);
    return {{position.x, position.y, position.z},
            {normal.x, normal.y, normal.z},
            {texture.x, texture.y},
            0};
  }
};

/// Parts before they are split by layers, with one layer per triangle.
struct Unsplit {
  std::span<const Batch::Vertex> vertices;
  std::span<const std::uint32_t> indices;
  std::span<const std::uint8_t> layers;
};

/// Appends to the arrays of a batch.
struct Builder {
  std::vector<Batch::Vertex>& vertices;
  std::vector<std::uint32_t>& indices;
  std::vector<Batch::Part>& parts;
  VertexMap vertexMap{};

  void add(const std::shared_ptr<Node>& node, const std::shared_ptr<Geometry>& geometry,
           const Matrix4& toParent) {
    const Attributes attributes(*geometry, toParent);
    if (!attributes.positions) return;
    for (std::size_t i = 0; i < geometry->elements().size(); ++i) {
      Batch::Part part{node, geometry, i, count(indices), 0, {}};
      add(geometry->elements()[i], attributes, part);
      if (part.indexCount == 0) continue;
      part.isShell = isShell(vertices, std::span(indices).subspan(part.firstIndex));
      parts.push_back(std::move(part));
    }
  }

  void add(const GeometryElement& element, const Attributes& attributes, Batch::Part& part) {
    const std::size_t whole = element.indexCount() / 3 * 3;
    const std::uint32_t number = count(parts);
    for (std::size_t i = 0; i < whole; ++i) {
      const auto index = static_cast<std::uint32_t>(element.index(i));
      addIndex(index, part, number, [&] { return attributes.vertex(index); });
    }
    part.indexCount = static_cast<std::uint32_t>(whole);
  }

  /// Adds the triangles of a part that lie in one layer.
  void addLayer(const Unsplit& from, const Batch::Part& whole, int layer) {
    Batch::Part part = whole;
    part.firstIndex = count(indices);
    part.box = {};
    part.layer = static_cast<std::uint8_t>(layer);
    const std::uint32_t number = count(parts);
    for (std::size_t i = whole.firstIndex; i < whole.firstIndex + whole.indexCount; ++i)
      if (from.layers[i / 3] == layer)
        addIndex(from.indices[i], part, number, [&] { return from.vertices[from.indices[i]]; });
    part.indexCount = count(indices) - part.firstIndex;
    if (part.indexCount > 0) parts.push_back(std::move(part));
  }

  /// `makeVertex` creates the vertex for an index that the part has not used yet.
  template <class MakeVertex>
  void addIndex(std::uint32_t index, Batch::Part& part, std::uint32_t number,
                const MakeVertex& makeVertex) {
    const auto [vertex, isNew] = vertexMap.find(index, number, count(vertices));
    if (isNew) {
      vertices.push_back(makeVertex());
      vertices.back().part = number;
      const auto& position = vertices.back().position;
      part.box.add({position[0], position[1], position[2]});
    }
    indices.push_back(vertex);
  }

  template <class Values>
  static std::uint32_t count(const Values& values) {
    return static_cast<std::uint32_t>(values.size());
  }
};

bool areCopies(const Batch::Child& left, const Batch::Child& right) {
  return left.geometry == right.geometry && left.position == right.position &&
         left.eulerAngles == right.eulerAngles;
}

}  // namespace

bool Batch::isMember(const Node& child) { return child.geometry_ && child.children_.empty(); }

std::vector<Batch::Child> Batch::membersOf(const Node& parent) {
  const graphics::Transaction transaction;
  std::vector<Child> members;
  for (const auto& child : parent.children_)
    if (isMember(*child))
      members.push_back({child, child->geometry_, child->position_, child->eulerAngles_});
  return members;
}

// Geometries are immutable, so frames need not wait while they are merged.
std::shared_ptr<const Batch> Batch::make(const Node& parent) {
  const std::shared_ptr<Batch> batch(new Batch);
  batch->children_ = membersOf(parent);
  if (batch->children_.size() < 2) return nullptr;
  const auto data = std::make_shared<Data>();
  Builder builder{data->vertices, data->indices, batch->parts_};
  for (const Child& child : batch->children_)
    builder.add(child.node, child.geometry, rigidTransform(child.position, child.eulerAngles));
  for (const Part& part : batch->parts_) batch->boundingBox_.add(part.box);
  const auto layers = findLayers(data->vertices, data->indices, batch->parts_);
  if (!layers.empty()) batch->splitParts(*data, layers);
  batch->data_ = data;
  return batch;
}

std::shared_ptr<const Batch> Batch::adopted(const Node& copy) const {
  const std::shared_ptr<Batch> batch(new Batch(*this));
  batch->children_ = membersOf(copy);
  if (!std::equal(children_.begin(), children_.end(), batch->children_.begin(),
                  batch->children_.end(), areCopies))
    return nullptr;
  std::unordered_map<const Node*, std::shared_ptr<Node>> copies;
  for (std::size_t i = 0; i < children_.size(); ++i)
    copies.emplace(children_[i].node.get(), batch->children_[i].node);
  for (Part& part : batch->parts_) part.node = copies.at(part.node.get());
  return batch;
}

void Batch::splitParts(Data& data, std::span<const std::uint8_t> layers) {
  const auto vertices = std::exchange(data.vertices, {});
  const auto indices = std::exchange(data.indices, {});
  const auto parts = std::exchange(parts_, {});
  Builder builder{data.vertices, data.indices, parts_};
  const int highest = *std::max_element(layers.begin(), layers.end());
  for (int layer = 0; layer <= highest; ++layer)
    for (const Part& part : parts) builder.addLayer({vertices, indices, layers}, part, layer);
}

bool Batch::matches(const Node& parent) const {
  const graphics::Transaction transaction;
  auto expected = children_.begin();
  for (const auto& child : parent.children_) {
    if (!isMember(*child)) continue;
    if (expected == children_.end() || expected->node != child ||
        expected->geometry != child->geometry_ || expected->position != child->position_ ||
        expected->eulerAngles != child->eulerAngles_)
      return false;
    ++expected;
  }
  return expected == children_.end();
}

}  // namespace orivanta::scene
