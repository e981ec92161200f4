#include "Platform/Render/QuadDrawing.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace orivanta::render {

namespace {

constexpr GLuint attributes = 6;

// Corners extend one pixel beyond the edges, for pixels that are partly covered.
constexpr std::string_view vertexSource = R"(
layout(location = 0) in vec2 center;
layout(location = 1) in vec2 halfSize;
layout(location = 2) in vec2 turn;
layout(location = 3) in float cornerRadius;
layout(location = 4) in vec4 color;
layout(location = 5) in vec4 texels;
uniform vec2 pictureSize;
out vec2 point;  // pixels from the center, along the rectangle's axes
flat out vec2 reach;
flat out float radius;
flat out vec4 tint;
flat out vec4 area;

void main() {
  point = (vec2(gl_VertexID & 1, gl_VertexID >> 1) * 2.0 - 1.0) * (halfSize + 1.0);
  reach = halfSize;
  radius = cornerRadius;
  tint = color;
  area = texels;
  vec2 pixel = center + vec2(turn.x * point.x - turn.y * point.y, turn.y * point.x + turn.x * point.y);
  gl_Position = vec4(2.0 * pixel.x / pictureSize.x - 1.0, 1.0 - 2.0 * pixel.y / pictureSize.y, 0.0, 1.0);
}
)";

constexpr std::string_view fragmentSource = R"(
in vec2 point;
flat in vec2 reach;
flat in float radius;
flat in vec4 tint;
flat in vec4 area;
uniform sampler2D contents;
out vec4 color;

void main() {
  // Distance to the rounded edge, negative inside.
  vec2 q = abs(point) - reach + radius;
  float distance = length(max(q, 0.0)) + min(max(q.x, q.y), 0.0) - radius;
  color = tint * clamp(0.5 - distance, 0.0, 1.0);
#if defined(IMAGE)
  color *= texture(contents, point / (2.0 * reach) + 0.5);
#elif defined(SHEET)
  // Limited to the centers of the outer texels, as if the image had a texture of its own.
  vec2 texel = clamp((point / (2.0 * reach) + 0.5) * area.zw, vec2(0.5), area.zw - 0.5);
  color *= texture(contents, (area.xy + texel) / vec2(textureSize(contents, 0)));
#elif defined(SCENE)
  color *= texture(contents, vec2(0.5, -0.5) * point / reach + 0.5);
#endif
}
)";

bool shareDrawCall(const Quad& a, const Quad& b) {
  return a.image == b.image && a.sheet == b.sheet && a.scene == b.scene && a.clip == b.clip;
}

// Limits drawing to the clip of a quad. OpenGL counts rows from the bottom.
void setScissor(const Quad& quad, GLsizei width, GLsizei height) {
  if (!quad.clip) return glScissor(0, 0, width, height);
  const int left = std::max(quad.clip->left, 0);
  const int top = std::max(quad.clip->top, 0);
  const int right = std::min(quad.clip->right, width);
  const int bottom = std::min(quad.clip->bottom, height);
  glScissor(left, height - bottom, std::max(right - left, 0), std::max(bottom - top, 0));
}

bool shrinks(const Quad& quad) {
  return static_cast<float>(quad.image->width()) > 2.5F * quad.vertex.halfSize[0] ||
         static_cast<float>(quad.image->height()) > 2.5F * quad.vertex.halfSize[1];
}

}  // namespace

QuadDrawing::Variant::Variant(Compilation&& compilation)
    : program(std::move(compilation)), pictureSize(program.uniform("pictureSize")) {
  program.setSampler("contents", 0);
}

QuadDrawing::Shaders::Shaders()
    : plain("", vertexSource, fragmentSource),
      withImage("#define IMAGE\n", vertexSource, fragmentSource),
      withSheet("#define SHEET\n", vertexSource, fragmentSource),
      withScene("#define SCENE\n", vertexSource, fragmentSource) {}

QuadDrawing::Variants::Variants(Shaders&& shaders)
    : plain(std::move(shaders.plain)),
      withImage(std::move(shaders.withImage)),
      withSheet(std::move(shaders.withSheet)),
      withScene(std::move(shaders.withScene)) {}

QuadDrawing::QuadDrawing(ImageTextures& images, const SheetTextures& sheets)
    : images_(images), sheets_(sheets), shaders_(std::make_unique<Shaders>()) {
  glBindVertexArray(vertexArray_.get());
  for (GLuint attribute = 0; attribute < attributes; ++attribute) {
    glEnableVertexAttribArray(attribute);
    glVertexAttribDivisor(attribute, 1);
  }
  glBindVertexArray(0);
}

void QuadDrawing::prepare() {
  if (shaders_) variants_ = std::make_unique<Variants>(std::move(*shaders_));
  shaders_ = nullptr;
}

void QuadDrawing::draw(std::span<const Quad> quads, std::span<const SceneTarget> scenes,
                       GLsizei width, GLsizei height, FrameStatistics& statistics) {
  if (quads.empty()) return;
  vertices_.clear();
  for (const Quad& quad : quads) vertices_.push_back(quad.vertex);
  glBindVertexArray(vertexArray_.get());
  glBindBuffer(GL_ARRAY_BUFFER, buffer_.get());
  const std::size_t bytes = vertices_.size() * sizeof(QuadVertex);
  glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(bytes), vertices_.data(), GL_STREAM_DRAW);
  statistics.bytesUploaded += static_cast<std::int64_t>(bytes);

  glViewport(0, 0, width, height);
  glDisable(GL_DEPTH_TEST);
  glEnable(GL_BLEND);
  glBlendFunc(GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
  glActiveTexture(GL_TEXTURE0);
  for (std::size_t first = 0; first < quads.size();) {
    std::size_t end = first + 1;
    while (end < quads.size() && shareDrawCall(quads[end], quads[first])) ++end;
    const Variant& variant = variantFor(quads[first]);
    variant.program.use();
    variant.program.set(variant.pictureSize, static_cast<float>(width), static_cast<float>(height));
    bindContents(quads[first], scenes, statistics);
    pointAttributesAt(first);
    setScissor(quads[first], width, height);
    glDrawArraysInstanced(GL_TRIANGLE_STRIP, 0, 4, static_cast<GLsizei>(end - first));
    ++statistics.drawCalls;
    statistics.triangles += static_cast<int>(2 * (end - first));
    first = end;
  }
  glDisable(GL_BLEND);
}

const QuadDrawing::Variant& QuadDrawing::variantFor(const Quad& quad) const {
  if (quad.scene) return variants_->withScene;
  if (quad.sheet) return variants_->withSheet;
  return quad.image ? variants_->withImage : variants_->plain;
}

void QuadDrawing::bindContents(const Quad& quad, std::span<const SceneTarget> scenes,
                               FrameStatistics& statistics) {
  if (quad.scene)
    glBindTexture(GL_TEXTURE_2D, scenes[*quad.scene].texture());
  else if (quad.sheet)
    sheets_.bind(*quad.sheet);
  else if (quad.image)
    images_.bind(quad.image, TexelSpace::encoded, shrinks(quad), statistics);
}

void QuadDrawing::pointAttributesAt(std::size_t firstQuad) {
  const auto point = [&](GLuint attribute, GLint components, std::size_t member) {
    glVertexAttribPointer(attribute, components, GL_FLOAT, GL_FALSE, sizeof(QuadVertex),
                          gl::offset(firstQuad * sizeof(QuadVertex) + member));
  };
  point(0, 2, offsetof(QuadVertex, center));
  point(1, 2, offsetof(QuadVertex, halfSize));
  point(2, 2, offsetof(QuadVertex, turn));
  point(3, 1, offsetof(QuadVertex, cornerRadius));
  point(4, 4, offsetof(QuadVertex, color));
  point(5, 4, offsetof(QuadVertex, texels));
}

}  // namespace orivanta::render
