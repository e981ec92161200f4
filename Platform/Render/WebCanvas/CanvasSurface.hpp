// A canvas of the page with a WebGL 2 context, which is OpenGL ES 3.0 for a renderer.
#pragma once

#include <memory>

#include "Platform/Foundation/Result.hpp"

namespace orivanta::render {

/// The context of one canvas. The page owns the canvas and sets its size. A frame that is drawn
/// into framebuffer 0 appears when the page's event ends. If the browser takes the context away,
/// what was drawn and uploaded is lost: destroy the renderer and make another one when the page
/// reports that the context is back.
class CanvasSurface {
 public:
  /// Makes the context of the canvas with this number of the page, and makes it current. It is an
  /// error if the browser does not support WebGL 2.
  static foundation::Result<std::unique_ptr<CanvasSurface>> make(int canvas);

  /// Releases the context.
  ~CanvasSurface();
  CanvasSurface(const CanvasSurface&) = delete;
  CanvasSurface& operator=(const CanvasSurface&) = delete;

  /// Makes the context current after another one was made current.
  void makeCurrent();

 private:
  explicit CanvasSurface(int context) : context_(context) {}

  const int context_;
};

}  // namespace orivanta::render
