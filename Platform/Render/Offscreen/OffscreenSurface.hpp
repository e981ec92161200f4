// A place to draw without a display: an EGL context without a surface, and a framebuffer.
// Public header.
#pragma once

#include <cstdint>
#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::render {

/// Belongs to the thread that made it, whose current context it is until it goes.
class ORIVANTA_API OffscreenSurface {
 public:
  /// Sides in pixels, at least 1 and at most what the driver allows. The error says what the
  /// machine lacks.
  static foundation::Result<std::unique_ptr<OffscreenSurface>> make(std::uint32_t width,
                                                                    std::uint32_t height);
  ~OffscreenSurface();
  OffscreenSurface(const OffscreenSurface&) = delete;
  OffscreenSurface& operator=(const OffscreenSurface&) = delete;

  /// Makes the context current on the calling thread again, after another one was.
  void makeCurrent();

  /// OpenGL's name of the framebuffer to draw into.
  unsigned framebuffer() const;

  /// What was drawn, with `scale` pixels per point; never null.
  std::shared_ptr<const graphics::Image> read(double scale = 1.0);

 private:
  struct Context;
  explicit OffscreenSurface(std::unique_ptr<Context> context);

  std::unique_ptr<Context> context_;
};

}  // namespace orivanta::render
