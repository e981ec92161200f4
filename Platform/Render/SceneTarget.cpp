#include "Platform/Render/SceneTarget.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <initializer_list>

#include "Platform/Foundation/Fatal.hpp"

namespace orivanta::render {

namespace {

constexpr GLint wantedSamples = 4;
constexpr GLenum colorFormat = GL_RGBA8;
constexpr GLenum depthFormat = GL_DEPTH24_STENCIL8;

// The driver lists the sample counts of a format in descending order.
GLint mostSamples(GLenum format) {
  GLint samples = 0;
  glGetInternalformativ(GL_RENDERBUFFER, format, GL_SAMPLES, 1, &samples);
  return samples;
}

bool isComplete() { return glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE; }

}  // namespace

// A driver may report more samples than it supports.
GLint supportedSamples() {
  constexpr GLsizei side = 16;
  const GLint named = std::min({wantedSamples, mostSamples(colorFormat), mostSamples(depthFormat)});
  return SceneTarget(side, side, named).samples();
}

SceneTarget::SceneTarget(GLsizei width, GLsizei height, GLint samples)
    : width_(width), height_(height), samples_(samples) {
  while (!makeDrawn() && samples_ > 0) samples_ /= 2;
  if (!isComplete() || !makeResolved())
    foundation::fatalError(
        fmt::format("the driver cannot create a framebuffer of {} x {} pixels", width, height));
}

bool SceneTarget::makeDrawn() const {
  glBindFramebuffer(GL_FRAMEBUFFER, drawn_.get());
  const auto attach = [&](const gl::Renderbuffer& buffer, GLenum format, GLenum attachment) {
    glBindRenderbuffer(GL_RENDERBUFFER, buffer.get());
    glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples_, format, width_, height_);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, buffer.get());
  };
  attach(color_, colorFormat, GL_COLOR_ATTACHMENT0);
  attach(depth_, depthFormat, GL_DEPTH_STENCIL_ATTACHMENT);
  return isComplete();
}

bool SceneTarget::makeResolved() const {
  glBindTexture(GL_TEXTURE_2D, texture_.get());
  glTexStorage2D(GL_TEXTURE_2D, 1, colorFormat, width_, height_);
  for (const GLenum filter :
       std::initializer_list<GLenum>{GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
    glTexParameteri(GL_TEXTURE_2D, filter, GL_LINEAR);
  for (const GLenum wrap : std::initializer_list<GLenum>{GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T})
    glTexParameteri(GL_TEXTURE_2D, wrap, GL_CLAMP_TO_EDGE);
  glBindFramebuffer(GL_FRAMEBUFFER, resolved_.get());
  glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture_.get(), 0);
  return isComplete();
}

void SceneTarget::begin() const {
  glBindFramebuffer(GL_FRAMEBUFFER, drawn_.get());
  glViewport(0, 0, width_, height_);
}

void SceneTarget::finish() const {
  glBindFramebuffer(GL_READ_FRAMEBUFFER, drawn_.get());
  glBindFramebuffer(GL_DRAW_FRAMEBUFFER, resolved_.get());
  glBlitFramebuffer(0, 0, width_, height_, 0, 0, width_, height_, GL_COLOR_BUFFER_BIT, GL_NEAREST);
  constexpr std::array<GLenum, 2> done{GL_COLOR_ATTACHMENT0, GL_DEPTH_STENCIL_ATTACHMENT};
  glInvalidateFramebuffer(GL_READ_FRAMEBUFFER, static_cast<GLsizei>(done.size()), done.data());
}

}  // namespace orivanta::render
