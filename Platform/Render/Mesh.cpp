#include "Platform/Render/Mesh.hpp"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <utility>

namespace orivanta::render {

namespace {

std::uint64_t nextRevision() {
  static std::atomic<std::uint64_t> last{0};
  return ++last;
}

// Uploads `values` to a buffer. The values before `unchanged` are uploaded only if the buffer has
// to grow.
template <class Value>
void fillBuffer(GLenum target, std::size_t& capacity, std::span<const Value> values,
                std::size_t unchanged, FrameStatistics& statistics) {
  std::size_t first = unchanged;
  if (values.size() > capacity) {
    const bool isFirst = capacity == 0;
    capacity = isFirst ? values.size() : values.size() + values.size() / 2;
    glBufferData(target, static_cast<GLsizeiptr>(capacity * sizeof(Value)), nullptr,
                 isFirst ? GL_STATIC_DRAW : GL_DYNAMIC_DRAW);
    first = 0;
  }
  const auto changed = values.subspan(std::min(first, values.size()));
  if (changed.empty()) return;
  glBufferSubData(target, static_cast<GLintptr>(first * sizeof(Value)),
                  static_cast<GLsizeiptr>(changed.size_bytes()), changed.data());
  statistics.bytesUploaded += static_cast<std::int64_t>(changed.size_bytes());
}

void setAttribute(GLuint index, GLint components, std::size_t offset) {
  glEnableVertexAttribArray(index);
  glVertexAttribPointer(index, components, GL_FLOAT, GL_FALSE, sizeof(Mesh::Vertex),
                        gl::offset(offset));
}

void setUpTexture(const gl::Texture& texture) {
  glBindTexture(GL_TEXTURE_2D, texture.get());
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
}

// Calls upload(firstPart, endPart) for ranges within one row that together cover all differences.
template <class Value, class Upload>
void forChangedStretches(std::size_t count, const Value& differs, const Upload& upload) {
  const auto rowLength = static_cast<std::size_t>(Mesh::partsPerRow);
  for (std::size_t row = 0; row < count; row += rowLength) {
    const std::size_t end = std::min(row + rowLength, count);
    std::size_t first = row;
    while (first < end && !differs(first)) ++first;
    if (first == end) continue;
    std::size_t last = end;
    while (!differs(last - 1)) --last;
    upload(first, last);
  }
}

}  // namespace

Mesh::Mesh() {
  setUpTexture(colors_);
  setUpTexture(placements_);
  glBindVertexArray(vertexArray_.get());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.get());
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indices_.get());
  setAttribute(0, 3, offsetof(Vertex, position));
  setAttribute(1, 3, offsetof(Vertex, normal));
  setAttribute(2, 2, offsetof(Vertex, textureCoordinate));
  glEnableVertexAttribArray(3);
  glVertexAttribIPointer(3, 1, GL_UNSIGNED_INT, sizeof(Vertex), gl::offset(offsetof(Vertex, part)));
}

void Mesh::setGeometry(std::span<const Vertex> vertices, std::span<const std::uint32_t> indices,
                       std::vector<MeshPart> parts, std::size_t unchangedVertices,
                       std::size_t unchangedIndices, FrameStatistics& statistics) {
  glBindVertexArray(vertexArray_.get());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.get());
  fillBuffer(GL_ARRAY_BUFFER, capacity_.vertices, vertices, unchangedVertices, statistics);
  fillBuffer(GL_ELEMENT_ARRAY_BUFFER, capacity_.indices, indices, unchangedIndices, statistics);
  parts_ = std::move(parts);
  revision_ = nextRevision();
}

void Mesh::setVertices(std::size_t first, std::span<const Vertex> vertices,
                       FrameStatistics& statistics) {
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.get());
  glBufferSubData(GL_ARRAY_BUFFER, static_cast<GLintptr>(first * sizeof(Vertex)),
                  static_cast<GLsizeiptr>(vertices.size_bytes()), vertices.data());
  statistics.bytesUploaded += static_cast<std::int64_t>(vertices.size_bytes());
  revision_ = nextRevision();
}

void Mesh::setLooks(std::span<const PartLook> looks, FrameStatistics& statistics) {
  if (looks.size() > capacity_.parts) growTextures(looks.size());
  glActiveTexture(GL_TEXTURE0);
  glBindTexture(GL_TEXTURE_2D, colors_.get());
  forChangedStretches(
      looks.size(), [&](std::size_t i) { return looks[i].color != uploadedColors_[i]; },
      [&](std::size_t first, std::size_t end) {
        for (std::size_t i = first; i < end; ++i) uploadedColors_[i] = looks[i].color;
        uploadColors(first, end, statistics);
      });
  glBindTexture(GL_TEXTURE_2D, placements_.get());
  forChangedStretches(
      looks.size(),
      [&](std::size_t i) { return looks[i].image && looks[i].placement != uploadedPlacements_[i]; },
      [&](std::size_t first, std::size_t end) {
        for (std::size_t i = first; i < end; ++i) uploadedPlacements_[i] = looks[i].placement;
        uploadPlacements(first, end, statistics);
      });
}

// Fills new textures with zeros, like the copies that they are compared with.
void Mesh::growTextures(std::size_t parts) {
  const auto rowLength = static_cast<std::size_t>(partsPerRow);
  const std::size_t rows = (parts + parts / 2 + rowLength - 1) / rowLength;
  capacity_.parts = rows * rowLength;
  uploadedColors_.assign(capacity_.parts, Texel{});
  uploadedPlacements_.assign(capacity_.parts, Placement{});
  glActiveTexture(GL_TEXTURE0);
  glBindTexture(GL_TEXTURE_2D, colors_.get());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_SRGB8_ALPHA8, partsPerRow, static_cast<GLsizei>(rows), 0,
               GL_RGBA, GL_UNSIGNED_BYTE, uploadedColors_.data());
  glBindTexture(GL_TEXTURE_2D, placements_.get());
  glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA32F, 2 * partsPerRow, static_cast<GLsizei>(rows), 0,
               GL_RGBA, GL_FLOAT, uploadedPlacements_.data());
}

void Mesh::uploadColors(std::size_t first, std::size_t end, FrameStatistics& statistics) {
  const auto place = static_cast<GLint>(first);
  const auto count = static_cast<GLsizei>(end - first);
  glTexSubImage2D(GL_TEXTURE_2D, 0, place % partsPerRow, place / partsPerRow, count, 1, GL_RGBA,
                  GL_UNSIGNED_BYTE, &uploadedColors_[first]);
  statistics.bytesUploaded += std::int64_t{count} * static_cast<std::int64_t>(sizeof(Texel));
}

void Mesh::uploadPlacements(std::size_t first, std::size_t end, FrameStatistics& statistics) {
  const auto place = static_cast<GLint>(first);
  const auto count = static_cast<GLsizei>(end - first);
  glTexSubImage2D(GL_TEXTURE_2D, 0, 2 * (place % partsPerRow), place / partsPerRow, 2 * count, 1,
                  GL_RGBA, GL_FLOAT, &uploadedPlacements_[first]);
  statistics.bytesUploaded += std::int64_t{count} * static_cast<std::int64_t>(sizeof(Placement));
}

void Mesh::bind() const {
  glBindVertexArray(vertexArray_.get());
  glActiveTexture(GL_TEXTURE0);
  glBindTexture(GL_TEXTURE_2D, colors_.get());
  glActiveTexture(GL_TEXTURE1);
  glBindTexture(GL_TEXTURE_2D, placements_.get());
}

void Mesh::draw(std::span<const Run> runs, FrameStatistics& statistics) {
  for (const Run& run : runs) {
    glDrawElements(GL_TRIANGLES, static_cast<GLsizei>(run.indexCount), GL_UNSIGNED_INT,
                   gl::offset(run.firstIndex * sizeof(std::uint32_t)));
    statistics.triangles += static_cast<int>(run.indexCount / 3);
  }
  statistics.drawCalls += static_cast<int>(runs.size());
}

}  // namespace orivanta::render
