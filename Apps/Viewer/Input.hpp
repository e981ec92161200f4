// Passes SDL's events to the viewer.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Render/Window/WindowSurface.hpp"

union SDL_Event;
struct SDL_Keysym;

namespace orivanta::viewer {

class Input {
 public:
  /// `clock` returns the time in seconds.
  Input(Viewer& viewer, render::WindowSurface& surface, std::function<double()> clock);

  /// Waits for an event for at most this many seconds, which may be infinite. Then passes all
  /// pending events with the times of their arrival. Returns whether the events may change the
  /// image.
  bool take(double seconds);

  bool isClosed() const { return closed_; }

  /// Whether the window may be visible: neither hidden nor minimized.
  bool isShown() const;

 private:
  bool handle(const SDL_Event& event, double time);
  bool handleWindow(const SDL_Event& event, double time);
  bool handleFinger(const SDL_Event& event, double time);
  bool handleMouse(const SDL_Event& event, double time);
  bool handleKey(const SDL_Event& event);
  bool handleCharacter(const SDL_Keysym& symbol, bool bringsText);
  void followTyping();
  void handTouches();

  Viewer& viewer_;
  render::WindowSurface& surface_;
  std::function<double()> clock_;
  std::vector<view::Touch> touches_;         // that have the current time
  std::optional<graphics::Rect> textPlace_;  // of the text input; empty if there is none
  int keysWithoutText_ = 0;                  // pressed before the text input started
  int buttonsDown_ = 0;
  bool closed_ = false;
};

}  // namespace orivanta::viewer
