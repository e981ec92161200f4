#include "Platform/Scene/Geometry.hpp"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Guarded.hpp"

namespace orivanta::scene {

using graphics::read;
using graphics::swapGuarded;
using graphics::Vector3;

namespace {

std::size_t sizeOf(const SharedBytes& data) { return data ? data->size() : 0; }

static_assert(std::endian::native == std::endian::little, "geometries have this order of bytes");

std::uint64_t readInteger(const std::byte* bytes, std::size_t count) {
  std::uint64_t value = 0;
  std::memcpy(&value, bytes, count);
  return value;
}

float readFloat(const std::byte* bytes) {
  float value = 0;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

graphics::Box boxOf(const GeometrySource& vertices, const std::vector<GeometryElement>& elements) {
  graphics::Box box;
  for (const GeometryElement& element : elements)
    for (std::size_t i = 0, count = element.indexCount(); i < count; ++i) {
      const std::uint64_t index = element.index(i);
      if (index > std::numeric_limits<std::uint32_t>::max())
        foundation::fatalError("an index of a geometry does not fit in 32 bits");
      box.add(vertices.vector(index));
    }
  return box;
}

}  // namespace

Vector3 GeometrySource::vector(std::size_t index) const {
  if (bytesPerComponent != sizeof(float))
    foundation::fatalError("components of a geometry source are not floats of 4 bytes");
  if (index >= vectorCount) foundation::fatalError("index out of range of a geometry source");
  const std::size_t components = std::min<std::size_t>(componentsPerVector, 3);
  const std::size_t size = components * sizeof(float);
  const std::size_t available = sizeOf(data);
  if (size > available || dataOffset > available - size ||
      (dataStride > 0 && index > (available - size - dataOffset) / dataStride))
    foundation::fatalError("the data of a geometry source is too short");

  Vector3 vector(0.0F);
  const std::byte* bytes = data ? data->data() + dataOffset + index * dataStride : nullptr;
  for (std::size_t i = 0; i < components; ++i)
    vector[static_cast<Vector3::length_type>(i)] = readFloat(bytes + i * sizeof(float));
  return vector;
}

std::size_t GeometryElement::indexCount() const {
  if (bytesPerIndex != 1 && bytesPerIndex != 2 && bytesPerIndex != 4 && bytesPerIndex != 8)
    foundation::fatalError("indices of a geometry element are not of 1, 2, 4 or 8 bytes");
  return sizeOf(data) / bytesPerIndex;
}

std::uint64_t GeometryElement::index(std::size_t position) const {
  if (position >= indexCount())
    foundation::fatalError("position out of range of a geometry element");
  return readInteger(data->data() + position * bytesPerIndex, bytesPerIndex);
}

Geometry::Geometry(std::vector<GeometrySource> sources, std::vector<GeometryElement> elements)
    : sources_(std::move(sources)), elements_(std::move(elements)) {
  if (const GeometrySource* vertices = source(Semantic::vertex))
    boundingBox_ = boxOf(*vertices, elements_);
}

std::shared_ptr<Geometry> Geometry::make(std::vector<GeometrySource> sources,
                                         std::vector<GeometryElement> elements) {
  return std::shared_ptr<Geometry>(new Geometry(std::move(sources), std::move(elements)));
}

std::shared_ptr<Geometry> Geometry::make(SharedBytes vertices,
                                         std::vector<GeometryElement> elements,
                                         VertexContents contents) {
  constexpr std::size_t stride = 8 * sizeof(float);
  const auto attribute = [&](Semantic semantic, std::size_t components, std::size_t firstFloat) {
    return GeometrySource{.data = vertices,
                          .semantic = semantic,
                          .vectorCount = sizeOf(vertices) / stride,
                          .componentsPerVector = components,
                          .dataOffset = firstFloat * sizeof(float),
                          .dataStride = stride};
  };
  std::vector<GeometrySource> sources{attribute(Semantic::vertex, 3, 0)};
  if (contents.normals) sources.push_back(attribute(Semantic::normal, 3, 3));
  if (contents.textureCoordinates) sources.push_back(attribute(Semantic::textureCoordinate, 2, 6));
  return make(std::move(sources), std::move(elements));
}

const GeometrySource* Geometry::source(Semantic semantic) const {
  const auto found = std::find_if(sources_.begin(), sources_.end(),
                                  [&](const auto& each) { return each.semantic == semantic; });
  return found == sources_.end() ? nullptr : &*found;
}

std::vector<std::shared_ptr<Material>> Geometry::materials() const { return read(materials_); }

void Geometry::setMaterials(std::vector<std::shared_ptr<Material>> materials) {
  swapGuarded(materials_, materials);
}

std::shared_ptr<Material> Geometry::firstMaterial() const {
  const graphics::Transaction transaction;
  return materials_.empty() ? nullptr : materials_.front();
}

}  // namespace orivanta::scene
