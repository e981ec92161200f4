#include "Platform/Render/Renderer.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Graphics/Transaction.hpp"
#include "Platform/Render/CanvasPainter.hpp"
#include "Platform/Render/DepthLayer.hpp"
#include "Platform/Render/QuadDrawing.hpp"
#include "Platform/Render/SceneRenderer.hpp"
#include "Platform/Render/SheetTextures.hpp"

namespace orivanta::render {

namespace {

void requireVersion3() {
  const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
  const std::string_view text = version != nullptr ? version : "none";
  constexpr std::string_view prefix = "OpenGL ES ";
  if (text.substr(0, prefix.size()) != prefix || gl::parameter(GL_MAJOR_VERSION) < 3)
    foundation::fatalError(fmt::format("the context is not OpenGL ES 3.0 but {}", text));
}

void reportErrors() {
#ifndef NDEBUG
  for (int i = 0; i < 8; ++i) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR) return;
    foundation::diagnostic(fmt::format("OpenGL error {:#06x} while drawing a frame", error));
  }
#endif
}

void setBasicState() {
  for (const GLenum capability : std::initializer_list<GLenum>{
           GL_BLEND, GL_CULL_FACE, GL_DEPTH_TEST, GL_DITHER, GL_POLYGON_OFFSET_FILL,
           GL_RASTERIZER_DISCARD, GL_SAMPLE_ALPHA_TO_COVERAGE, GL_SAMPLE_COVERAGE, GL_SCISSOR_TEST,
           GL_STENCIL_TEST})
    glDisable(capability);
  glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
  glDepthMask(GL_TRUE);
  glDepthFunc(GL_LEQUAL);
  glDepthRangef(0.0F, 1.0F);
  glFrontFace(GL_CCW);
  glCullFace(GL_BACK);
  glBlendEquation(GL_FUNC_ADD);
  glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
  for (const GLenum none : std::initializer_list<GLenum>{
           GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_PIXELS, GL_UNPACK_SKIP_ROWS})
    glPixelStorei(none, 0);
  glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
  for (GLuint unit = 0; unit < 4; ++unit) glBindSampler(unit, 0);
}

GLsizei pixelsOf(double points, double scale, GLint largest) {
  return static_cast<GLsizei>(
      std::clamp(std::round(points * scale), 1.0, static_cast<double>(largest)));
}

}  // namespace

struct Renderer::Resources {
  const GLint samples = supportedSamples();
  const GLint largestSide = gl::parameter(GL_MAX_RENDERBUFFER_SIZE);
  SceneGatherer gatherer;
  ImageTextures images;
  SceneRenderer scenes{images};
  SheetTextures sheets;
  QuadDrawing quads{images, sheets};
  std::vector<SceneTarget> targets;  ///< one per scene of a frame
  std::vector<SceneSnapshot> shown;  ///< the contents of each target
  FrameStatistics statistics;

  void drawScenes(std::vector<PaintedScene>& painted);
};

Renderer::Renderer() {
  requireVersion3();
  prepareDepthLayers();
  resources_ = std::make_unique<Resources>();
}

Renderer::~Renderer() = default;

void Renderer::render(view::View& view, graphics::Size size, double scale, double time,
                      unsigned framebuffer) {
  Resources& resources = *resources_;
  resources.statistics = {};
  std::vector<Quad> quads;
  std::vector<PaintedScene> scenes;
  {
    const graphics::Transaction transaction;
    view.frameBegins();
    view.layoutIfNeeded();
    CanvasPainter painter(resources.gatherer, resources.sheets, scale, time);
    painter.paint(view);
    view.frameGathered();
    quads = std::move(painter.quads);
    scenes = std::move(painter.scenes);
  }
  resources.scenes.prepare();
  resources.quads.prepare();
  setBasicState();
  resources.sheets.upload(resources.statistics);
  resources.drawScenes(scenes);

  const GLsizei width = pixelsOf(size.width, scale, resources.largestSide);
  const GLsizei height = pixelsOf(size.height, scale, resources.largestSide);
  glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
  glEnable(GL_SCISSOR_TEST);
  glScissor(0, 0, width, height);
  glClearColor(0, 0, 0, 0);
  glClear(GL_COLOR_BUFFER_BIT);
  resources.quads.draw(quads, resources.targets, width, height, resources.statistics);
  glDisable(GL_SCISSOR_TEST);
  glBindVertexArray(0);  // so that other code does not change the attributes of our vertex array
  resources.images.collect();
  resources.sheets.collect();
  resources.scenes.collect();
  resources.gatherer.collect();
  reportErrors();
}

void Renderer::Resources::drawScenes(std::vector<PaintedScene>& painted) {
  const auto side = static_cast<std::uint32_t>(largestSide);
  while (targets.size() > painted.size()) targets.pop_back();
  shown.resize(painted.size());
  for (std::size_t i = 0; i < painted.size(); ++i) {
    const auto width = static_cast<GLsizei>(std::min(painted[i].width, side));
    const auto height = static_cast<GLsizei>(std::min(painted[i].height, side));
    if (i == targets.size())
      targets.emplace_back(width, height, samples);
    else if (targets[i].width() != width || targets[i].height() != height)
      targets[i] = SceneTarget(width, height, samples);
    else if (shown[i] == painted[i].snapshot)
      continue;
    shown[i] = std::move(painted[i].snapshot);
    scenes.render(shown[i], targets[i], statistics);
  }
}

const FrameStatistics& Renderer::statistics() const { return resources_->statistics; }

int Renderer::sampleCount() const { return std::max(resources_->samples, 1); }

}  // namespace orivanta::render
