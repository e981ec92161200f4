// A window with an OpenGL ES 3 context, created with SDL 2.
#pragma once

#include <memory>
#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"

struct SDL_Window;

namespace orivanta::render {

/// Only one may exist at a time. Must be created, used and destroyed on the main thread, where its
/// context stays current. The application itself polls SDL events.
class ORIVANTA_API WindowSurface {
 public:
  struct Options {
    std::string title;
    graphics::Size size{1280, 800};  ///< points
    double scale = 0;                ///< pixels per point; 0 selects the screen's density
  };

  /// The error describes what is missing on the system.
  static foundation::Result<std::unique_ptr<WindowSurface>> make(const Options& options);
  ~WindowSurface();
  WindowSurface(const WindowSurface&) = delete;
  WindowSurface& operator=(const WindowSurface&) = delete;

  // Both may change during the window's lifetime.
  double scale() const;         ///< pixels per point
  graphics::Size size() const;  ///< points

  /// Converts window coordinates from SDL to points.
  graphics::Point pointAt(double x, double y) const;

  SDL_Window* window() const;

  /// Shows the contents of framebuffer 0, at the next screen refresh if possible.
  void present();

  /// The contents of framebuffer 0 before they are presented.
  std::shared_ptr<const graphics::Image> read() const;

 private:
  struct State;
  explicit WindowSurface(std::unique_ptr<State> state);

  std::unique_ptr<State> state_;
};

}  // namespace orivanta::render
