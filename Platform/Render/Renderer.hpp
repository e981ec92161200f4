// Draws a tree of views with OpenGL ES 3.0.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Render/FrameStatistics.hpp"
#include "Platform/View/Fwd.hpp"

namespace orivanta::render {

/// Draws views with the OpenGL ES context that is current when the renderer is created. Create, use
/// and destroy it on a thread on which that context is current. It keeps uploaded data as long as
/// scenes refer to it, and the scenes of a frame until the next frame.
class ORIVANTA_API Renderer {
 public:
  /// Creates a renderer. A context below OpenGL ES 3.0, or a shader that the driver rejects, is a
  /// fatal error.
  Renderer();
  ~Renderer();
  Renderer(const Renderer&) = delete;
  Renderer& operator=(const Renderer&) = delete;

  /// Lays out the view and its descendants and draws them into a framebuffer, from its lower left
  /// corner. `size` is in points, and `scale` is the number of pixels per point. `framebuffer` is
  /// the OpenGL name of the framebuffer; 0 is the window's. It is cleared to transparent first. It
  /// receives sRGB values without conversion, premultiplied by alpha. `time`: seconds; must
  /// increase. Other threads may change scenes, sprites and views at the same time: these changes
  /// wait while the frame is gathered, and appear in the next frame. Does not rely on any state of
  /// the context, and does not restore it; no vertex array is bound afterwards.
  void render(view::View& view, graphics::Size size, double scale, double time,
              unsigned framebuffer = 0);

  const FrameStatistics& statistics() const;  ///< of the last frame

  /// Returns the samples for each pixel of a 3D scene: 4, or fewer if the driver does not allow 4.
  int sampleCount() const;

 private:
  struct Resources;
  std::unique_ptr<Resources> resources_;
};

}  // namespace orivanta::render
