#include "Platform/Render/RibbonMesh.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "Platform/Render/PartLook.hpp"
#include "Platform/Render/RibbonShaders.hpp"
#include "Platform/Render/Srgb.hpp"

namespace orivanta::render {

namespace {

using Vertex = scene::Ribbons::Vertex;

constexpr std::size_t paletteSize = 256;

template <class Value>
void fill(GLenum target, std::span<const Value> values, FrameStatistics& statistics) {
  glBufferData(target, static_cast<GLsizeiptr>(values.size_bytes()), values.data(), GL_STATIC_DRAW);
  statistics.bytesUploaded += static_cast<std::int64_t>(values.size_bytes());
}

// A row of colors and a row of widths, in sixteenths of a point.
std::array<Texel, 2 * paletteSize> texelsOf(std::span<const scene::RibbonColor> colors) {
  std::array<Texel, 2 * paletteSize> texels{};
  for (std::size_t i = 0; i < std::min(colors.size(), paletteSize); ++i) {
    const auto& [color, width] = colors[i];
    texels[i] = {byteOf(color.red), byteOf(color.green), byteOf(color.blue), byteOf(color.alpha)};
    const long sixteenths = std::lround(16 * std::clamp(width, 0.0F, 4095.0F));
    texels[paletteSize + i] = {static_cast<std::uint8_t>(sixteenths & 255),
                               static_cast<std::uint8_t>(sixteenths >> 8), 0, 0};
  }
  return texels;
}

}  // namespace

RibbonMesh::RibbonMesh(const scene::Ribbons& ribbons, FrameStatistics& statistics)
    : box_(ribbons.boundingBox()) {
  for (const auto& part : ribbons.parts())
    parts_.push_back({part.firstIndex, part.indexCount, part.box});
  glBindVertexArray(vertexArray_.get());
  glBindBuffer(GL_ARRAY_BUFFER, vertices_.get());
  glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indices_.get());
  fill(GL_ARRAY_BUFFER, ribbons.vertices(), statistics);
  fill(GL_ELEMENT_ARRAY_BUFFER, ribbons.indices(), statistics);
  for (GLuint attribute = 0; attribute < 4; ++attribute) glEnableVertexAttribArray(attribute);
  glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(Vertex),
                        gl::offset(offsetof(Vertex, position)));
  glVertexAttribPointer(1, 4, GL_SHORT, GL_TRUE, sizeof(Vertex),
                        gl::offset(offsetof(Vertex, before)));
  glVertexAttribPointer(2, 1, GL_FLOAT, GL_FALSE, sizeof(Vertex),
                        gl::offset(offsetof(Vertex, distance)));
  glVertexAttribIPointer(3, 4, GL_BYTE, sizeof(Vertex), gl::offset(offsetof(Vertex, color)));
  glBindTexture(GL_TEXTURE_2D, palette_.get());
  glTexStorage2D(GL_TEXTURE_2D, 1, GL_RGBA8, paletteSize, 2);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
  glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
}

void RibbonMesh::bind(const std::vector<scene::RibbonColor>& colors, FrameStatistics& statistics) {
  glBindVertexArray(vertexArray_.get());
  glActiveTexture(GL_TEXTURE0 + ribbonUnits::palette);
  glBindTexture(GL_TEXTURE_2D, palette_.get());
  if (uploaded_ == colors) return;
  uploaded_ = colors;
  const auto texels = texelsOf(colors);
  glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, paletteSize, 2, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
  statistics.bytesUploaded += static_cast<std::int64_t>(sizeof(texels));
}

}  // namespace orivanta::render
