// Draws a tree of views with OpenGL ES 3.0.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::render {

/// Bound to the OpenGL ES context that is current when it is made; made, used and destroyed on a
/// thread where that context is current. Keeps what it uploads as long as the scenes refer to it,
/// and the scenes of a frame until the next one.
class ORIVANTA_API Renderer {
 public:
  /// A context below OpenGL ES 3.0, or a shader that the driver refuses, is a fatal error.
  Renderer();
  ~Renderer();
  Renderer(const Renderer&) = delete;
  Renderer& operator=(const Renderer&) = delete;

  /// Lays out and draws the view and everything below it into a framebuffer of `size` points times
  /// `scale` pixels, from its lower left corner. `framebuffer` is OpenGL's name for it, 0 being
  /// the window's; its colors are taken to hold sRGB values as they are, multiplied by their
  /// alpha, and it begins transparent. `time`: seconds, rising. Other threads may change scenes,
  /// sprites and views meanwhile: their changes wait while the frame is gathered, and show in the
  /// next one. Relies on no state of the context and leaves its own behind,
  /// with no vertex array bound.
  void render(view::View& view, graphics::Size size, double scale, double time,
              unsigned framebuffer = 0);

  const FrameStatistics& statistics() const;  ///< of the last frame

  /// Samples for each pixel of a 3D scene: 4, or what the driver allows.
  int sampleCount() const;

 private:
  struct Resources;
  std::unique_ptr<Resources> resources_;
};

}  // namespace orivanta::render
