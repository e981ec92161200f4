// Where a 3D scene is drawn: a multisampled framebuffer, and the texture that it becomes.
#pragma once

#include "Platform/Render/Gl.hpp"

namespace orivanta::render {

class SceneTarget {
 public:
  /// Sides in pixels. `samples`: for each pixel; 0 or 1 for none beyond the pixel's own. Takes
  /// fewer where the driver refuses so many; one that refuses even none is a fatal error.
  SceneTarget(GLsizei width, GLsizei height, GLint samples);

  GLsizei width() const { return width_; }
  GLsizei height() const { return height_; }
  GLint samples() const { return samples_; }  ///< as far as the driver allows them

  /// Draw into it from now on.
  void begin() const;

  /// Makes the texture of what was drawn. Nothing more is drawn into it before `begin`.
  void finish() const;

  /// Rows from the bottom, sRGB values multiplied by the alpha.
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

/// 4, or the most that the driver allows for what a `SceneTarget` needs.
GLint supportedSamples();

}  // namespace orivanta::render
