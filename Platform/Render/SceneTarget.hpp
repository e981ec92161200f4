// The target of a 3D scene: a multisampled framebuffer with depth and stencil, and the resolved
// texture.
#pragma once

#include "Platform/Render/Gl.hpp"

namespace orivanta::render {

class SceneTarget {
 public:
  /// Width and height are in pixels. `samples` is the number per pixel; 0 or 1 disables
  /// multisampling. If the driver rejects the number, fewer are used. If it rejects even a target
  /// without multisampling, the program stops with a fatal error.
  SceneTarget(GLsizei width, GLsizei height, GLint samples);

  GLsizei width() const { return width_; }
  GLsizei height() const { return height_; }
  GLint samples() const { return samples_; }  ///< the number actually used

  /// Directs drawing to this target.
  void begin() const;

  /// Resolves the samples into the texture. Call `begin` before drawing again.
  void finish() const;

  /// Rows from the bottom; premultiplied sRGB values.
  GLuint texture() const { return texture_.get(); }

 private:
  bool makeDrawn() const;
  bool makeResolved() const;

  GLsizei width_;
  GLsizei height_;
  GLint samples_;
  gl::Renderbuffer color_;
  gl::Renderbuffer depth_;
  gl::Framebuffer drawn_;
  gl::Texture texture_;
  gl::Framebuffer resolved_;
};

/// 4, or the maximum that the driver supports for a `SceneTarget`.
GLint supportedSamples();

}  // namespace orivanta::render
