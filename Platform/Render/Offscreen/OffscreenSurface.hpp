// An offscreen buffer for drawing without a display: an EGL context without an EGL surface, and a
// framebuffer.
// Public header.
#pragma once

#include <cstdint>
#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::render {

/// An offscreen surface. It belongs to the thread that created it. Its context is that thread's
/// current context until it is destroyed.
class ORIVANTA_API OffscreenSurface {
 public:
  /// Creates a surface. The sides are in pixels, from 1 to the driver's limit. The error describes
  /// what the system does not support.
  static foundation::Result<std::unique_ptr<OffscreenSurface>> make(std::uint32_t width,
                                                                    std::uint32_t height);
  ~OffscreenSurface();
  OffscreenSurface(const OffscreenSurface&) = delete;
  OffscreenSurface& operator=(const OffscreenSurface&) = delete;

  /// Makes the context current on the calling thread again, after another context was made current.
  void makeCurrent();

  /// Returns the OpenGL name of the framebuffer to draw into.
  unsigned framebuffer() const;

  /// Returns the contents as an image with `scale` pixels per point; never null.
  std::shared_ptr<const graphics::Image> read(double scale = 1.0);

 private:
  struct Context;
  explicit OffscreenSurface(std::unique_ptr<Context> context);

  std::unique_ptr<Context> context_;
};

}  // namespace orivanta::render
