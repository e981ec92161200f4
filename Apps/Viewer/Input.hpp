// Brings SDL's events to the viewer.
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
  /// `clock` tells the time in seconds.
  Input(Viewer& viewer, render::WindowSurface& surface, std::function<double()> clock);

  /// Hands over what has happened, as of the time when it came in. With `wait`, sleeps until
  /// something has. Whether it matters to the picture.
  bool take(bool wait);

  bool isClosed() const { return closed_; }

  /// Whether the window may be in sight: neither hidden nor minimized.
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
  std::vector<view::Touch> touches_;         // of this moment
  std::optional<graphics::Rect> textPlace_;  // of the text input; nothing while there is none
  int keysWithoutText_ = 0;                  // that were pressed before the text input began
  int buttonsDown_ = 0;
  bool closed_ = false;
};

}  // namespace orivanta::viewer
