// A window to draw in, with its OpenGL ES 3 context, by SDL 2.
#pragma once

#include <memory>
#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Graphics/Geometry.hpp"
#include "Platform/Graphics/Image.hpp"

struct SDL_Window;

namespace orivanta::render {

/// One at a time. Made, used and destroyed on the main thread, whose current context it is until it
/// goes. The host takes the events from SDL itself.
class ORIVANTA_API WindowSurface {
 public:
  struct Options {
    std::string title;
    graphics::Size size{1280, 800};  ///< points
    double scale = 0;                ///< pixels per point; 0 for the screen's own
  };

  /// The error says what the machine lacks.
  static foundation::Result<std::unique_ptr<WindowSurface>> make(const Options& options);
  ~WindowSurface();
  WindowSurface(const WindowSurface&) = delete;
  WindowSurface& operator=(const WindowSurface&) = delete;

  // Both may change while the window is there.
  double scale() const;         ///< pixels per point
  graphics::Size size() const;  ///< points

  /// A place of the window as SDL tells it, in points.
  graphics::Point pointAt(double x, double y) const;

  SDL_Window* window() const;

  /// Shows what was drawn into framebuffer 0, at the screen's next refresh where that is possible.
  void present();

  /// What was drawn and not yet presented.
  std::shared_ptr<const graphics::Image> read() const;

 private:
  struct State;
  explicit WindowSurface(std::unique_ptr<State> state);

  std::unique_ptr<State> state_;
};

}  // namespace orivanta::render
