// Brings SDL's events to the viewer.
#pragma once

#include <vector>

#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Render/Window/WindowSurface.hpp"

union SDL_Event;

namespace orivanta::viewer {

class Input {
 public:
  Input(Viewer& viewer, render::WindowSurface& surface);

  /// Hands over what has happened. With `wait`, sleeps until something has. Whether it matters to
  /// the picture.
  bool take(bool wait, double time);

  bool isClosed() const { return closed_; }

 private:
  bool handle(const SDL_Event& event, double time);
  bool handleWindow(const SDL_Event& event, double time);
  bool handleFinger(const SDL_Event& event, double time);
  bool handleMouse(const SDL_Event& event, double time);
  bool handleKey(const SDL_Event& event);
  void handTouches();

  Viewer& viewer_;
  render::WindowSurface& surface_;
  std::vector<view::Touch> touches_;  // of this moment
  int buttonsDown_ = 0;
  bool closed_ = false;
};

}  // namespace orivanta::viewer
