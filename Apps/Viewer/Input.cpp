#include "Apps/Viewer/Input.hpp"

#include <SDL.h>

#include <cmath>
#include <memory>
#include <utility>

#include "Apps/Viewer/KeyText.hpp"

namespace orivanta::viewer {

namespace {

std::optional<Key> keyOf(SDL_Keycode code) {
  switch (code) {
    case SDLK_LEFT:
      return Key::left;
    case SDLK_RIGHT:
      return Key::right;
    case SDLK_UP:
      return Key::up;
    case SDLK_DOWN:
      return Key::down;
    case SDLK_PAGEUP:
      return Key::pageUp;
    case SDLK_PAGEDOWN:
      return Key::pageDown;
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
      return Key::enter;
    case SDLK_ESCAPE:
      return Key::escape;
    case SDLK_BACKSPACE:
      return Key::backspace;
    case SDLK_HOME:
      return Key::home;
    case SDLK_END:
      return Key::end;
    case SDLK_DELETE:
      return Key::erase;
    case SDLK_AC_BACK:
      return Key::back;
    case SDLK_TAB:
      return Key::tab;
    case SDLK_F12:
      return Key::picture;
    default:
      return std::nullopt;
  }
}

view::TouchPhase phaseOf(Uint32 type) {
  if (type == SDL_FINGERDOWN) return view::TouchPhase::began;
  return type == SDL_FINGERUP ? view::TouchPhase::ended : view::TouchPhase::moved;
}

// Trackpads report fingers as well, but not with positions on the screen.
bool isOnScreen(SDL_TouchID device) {
  const SDL_TouchDeviceType type = SDL_GetTouchDeviceType(device);
  return type == SDL_TOUCH_DEVICE_DIRECT || type == SDL_TOUCH_DEVICE_INVALID;
}

// Returns whether there is an event.
bool waitFor(SDL_Event& event, double seconds) {
  constexpr double longest = 3600;
  if (seconds <= 0) return false;
  if (seconds > longest) return SDL_WaitEvent(&event) == 1;
  return SDL_WaitEventTimeout(&event, static_cast<int>(std::ceil(seconds * 1000))) == 1;
}

}  // namespace

Input::Input(Viewer& viewer, render::WindowSurface& surface, std::function<double()> clock)
    : viewer_(viewer), surface_(surface), clock_(std::move(clock)) {
  SDL_StopTextInput();  // SDL starts with text input on
}

bool Input::take(double seconds) {
  followTyping();
  SDL_Event event;
  const bool isWoken = waitFor(event, seconds);
  const double time = clock_();
  const auto matter = [&] {
    const bool matters = handle(event, time);
    followTyping();
    return matters;
  };
  bool matters = isWoken && matter();
  while (SDL_PollEvent(&event) == 1) matters = matter() || matters;
  handTouches();
  return matters;
}

bool Input::isShown() const {
  return (SDL_GetWindowFlags(surface_.window()) & (SDL_WINDOW_HIDDEN | SDL_WINDOW_MINIMIZED)) == 0;
}

bool Input::handle(const SDL_Event& event, double time) {
  if (event.type != SDL_FINGERDOWN && event.type != SDL_FINGERMOTION && event.type != SDL_FINGERUP)
    handTouches();
  switch (event.type) {
    case SDL_QUIT:
      closed_ = true;
      return false;
    case SDL_WINDOWEVENT:
      return handleWindow(event, time);
    case SDL_FINGERDOWN:
    case SDL_FINGERMOTION:
    case SDL_FINGERUP:
      return handleFinger(event, time);
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
    case SDL_MOUSEMOTION:
    case SDL_MOUSEWHEEL:
      return handleMouse(event, time);
    case SDL_KEYDOWN:
      return handleKey(event);
    case SDL_TEXTINPUT:
      if (viewer_.wantsText()) viewer_.textTyped(event.text.text);
      return viewer_.wantsText();
    case SDL_TEXTEDITING:
      viewer_.textComposed(event.edit.text);
      return viewer_.wantsText();
    default:
      return false;
  }
}

bool Input::handleWindow(const SDL_Event& event, double time) {
  switch (event.window.event) {
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
      viewer_.resize(surface_.size(), surface_.scale());
      return true;
    case SDL_WINDOWEVENT_FOCUS_LOST:
      viewer_.cancelTouches(time);
      return true;
    case SDL_WINDOWEVENT_EXPOSED:
    case SDL_WINDOWEVENT_SHOWN:
    case SDL_WINDOWEVENT_RESTORED:
      return true;
    default:
      return false;
  }
}

bool Input::handleFinger(const SDL_Event& event, double time) {
  const SDL_TouchFingerEvent& finger = event.tfinger;
  if (!isOnScreen(finger.touchId)) return false;
  const graphics::Size size = surface_.size();
  touches_.push_back({static_cast<std::uint64_t>(finger.fingerId),
                      phaseOf(event.type),
                      {finger.x * size.width, finger.y * size.height},
                      time});
  return true;
}

void Input::handTouches() {
  if (!touches_.empty()) viewer_.touch(std::exchange(touches_, {}));
}

bool Input::handleMouse(const SDL_Event& event, double time) {
  if (event.type == SDL_MOUSEMOTION) {
    if (buttonsDown_ == 0) return false;
    viewer_.pointer().move(surface_.pointAt(event.motion.x, event.motion.y), time);
    return true;
  }
  if (event.type == SDL_MOUSEWHEEL) {
    const double sign = event.wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
    viewer_.wheel(surface_.pointAt(event.wheel.mouseX, event.wheel.mouseY),
                  sign * static_cast<double>(event.wheel.preciseY));
    return true;
  }
  const SDL_MouseButtonEvent& button = event.button;
  if (button.button != SDL_BUTTON_LEFT && button.button != SDL_BUTTON_RIGHT) return false;
  const auto which = button.button == SDL_BUTTON_LEFT ? PointerButton::left : PointerButton::right;
  const graphics::Point at = surface_.pointAt(button.x, button.y);
  if (event.type == SDL_MOUSEBUTTONDOWN) {
    if (++buttonsDown_ == 1) SDL_CaptureMouse(SDL_TRUE);
    viewer_.pointer().press(which, at, button.clicks, time);
  } else {
    if (buttonsDown_ > 0 && --buttonsDown_ == 0) SDL_CaptureMouse(SDL_FALSE);
    viewer_.pointer().release(which, at, time);
  }
  return true;
}

bool Input::handleKey(const SDL_Event& event) {
  const SDL_Keysym& symbol = event.key.keysym;
  const bool control = (symbol.mod & (KMOD_CTRL | KMOD_GUI)) != 0;
  const bool bringsText = keysWithoutText_ == 0;
  if (!bringsText) --keysWithoutText_;
  auto key = keyOf(symbol.sym);
  if (control && latinLetterOf(symbol) == 'f') key = Key::search;
  if (symbol.sym == SDLK_SPACE && !viewer_.wantsText()) key = Key::space;
  if (key == Key::tab && (symbol.mod & (KMOD_ALT | KMOD_CTRL)) != 0) return false;
  if ((symbol.mod & KMOD_ALT) != 0 && symbol.sym == SDLK_LEFT) key = Key::back;
  if (control && latinLetterOf(symbol) == 'v' && viewer_.wantsText()) {
    const std::unique_ptr<char, void (*)(void*)> text(SDL_GetClipboardText(), SDL_free);
    if (text) viewer_.textTyped(text.get());
    return true;
  }
  if (key) viewer_.keyPressed({*key, (symbol.mod & KMOD_SHIFT) != 0, control});
  if (key || control || (symbol.mod & (KMOD_ALT | KMOD_MODE)) != 0) return key.has_value();
  return handleCharacter(symbol, bringsText);
}

bool Input::handleCharacter(const SDL_Keysym& symbol, bool bringsText) {
  if (viewer_.wantsText() && bringsText) return false;
  const bool hasSlashKey = SDL_GetScancodeFromKey(SDLK_SLASH) != SDL_SCANCODE_UNKNOWN;
  const std::string text =
      viewer_.wantsText() ? characterOf(symbol) : std::string(shortcutOf(symbol, hasSlashKey));
  if (!text.empty()) viewer_.textTyped(text);
  return !text.empty();
}

// Text input is on only while the user types. Otherwise, an input method or an on-screen keyboard
// would intercept the shortcuts.
void Input::followTyping() {
  const auto place = viewer_.textPlace();
  if (place == textPlace_) return;
  if (!place) {
    SDL_StopTextInput();
    keysWithoutText_ = 0;
  } else {
    const double unit = surface_.pointAt(1, 1).x;
    const auto units = [&](double points) { return static_cast<int>(std::lround(points / unit)); };
    const SDL_Rect field{units(place->minX()), units(place->minY()), units(place->size.width),
                         units(place->size.height)};
    SDL_SetTextInputRect(&field);
    if (!textPlace_) {
      keysWithoutText_ = SDL_PeepEvents(nullptr, 0, SDL_PEEKEVENT, SDL_KEYDOWN, SDL_KEYDOWN);
      SDL_StartTextInput();
    }
  }
  textPlace_ = place;
}

}  // namespace orivanta::viewer
