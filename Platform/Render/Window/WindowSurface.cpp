#include "Platform/Render/Window/WindowSurface.hpp"

#include <SDL.h>
#include <epoxy/gl.h>
#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace orivanta::render {

struct WindowSurface::State {
  SDL_Window* window = nullptr;
  SDL_GLContext context = nullptr;
  double wantedScale = 0;

  State() = default;
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() {
    if (context != nullptr) SDL_GL_DeleteContext(context);
    if (window != nullptr) SDL_DestroyWindow(window);
    SDL_QuitSubSystem(SDL_INIT_VIDEO);
  }
};

namespace {

auto error(std::string_view what) {
  return foundation::failure("SDL", 1, fmt::format("{}: {}", what, SDL_GetError()));
}

constexpr std::string_view noScreen = "no screen is available for a window";

// SDL may fall back to a driver with invisible windows. That is accepted only if requested by name,
// as in tests.
bool isUnaskedForInvisible(std::string_view driver) {
  if (driver != "offscreen" && driver != "dummy") return false;
  const char* const asked = SDL_GetHint(SDL_HINT_VIDEODRIVER);
  return asked == nullptr || std::string_view(asked).find(driver) == std::string_view::npos;
}

// Disables the conversion between touch and mouse events.
void setHints() {
  SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "0");
  SDL_SetHint(SDL_HINT_MOUSE_TOUCH_EVENTS, "0");
  SDL_SetHint(SDL_HINT_OPENGL_ES_DRIVER, "1");
  SDL_SetHint(SDL_HINT_VIDEO_ALLOW_SCREENSAVER, "1");
}

void setAttributes() {
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_ES);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
  SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 0);
  SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);  // scenes have their own depth buffer
}

struct Pair {
  int width = 0;
  int height = 0;
};

Pair pixelsOf(SDL_Window* window) {
  Pair pixels;
  SDL_GL_GetDrawableSize(window, &pixels.width, &pixels.height);
  return pixels;
}

Pair unitsOf(SDL_Window* window) {
  Pair units;
  SDL_GetWindowSize(window, &units.width, &units.height);
  return units;
}

// Pixels per unit of the window.
double density(SDL_Window* window) {
  const Pair units = unitsOf(window);
  return units.width > 0 ? static_cast<double>(pixelsOf(window).width) / units.width : 1.0;
}

}  // namespace

WindowSurface::WindowSurface(std::unique_ptr<State> state) : state_(std::move(state)) {}
WindowSurface::~WindowSurface() = default;

foundation::Result<std::unique_ptr<WindowSurface>> WindowSurface::make(const Options& options) {
  setHints();
  auto state = std::make_unique<State>();
  if (SDL_InitSubSystem(SDL_INIT_VIDEO) != 0) return error(noScreen);
  if (isUnaskedForInvisible(SDL_GetCurrentVideoDriver()))
    return foundation::failure("SDL", 1,
                               fmt::format("{}: no display server is available", noScreen));
  setAttributes();
  state->wantedScale = options.scale;
  // If the window's units are pixels, a requested density enlarges the window.
  const double factor = options.scale > 0 ? options.scale : 1.0;
  state->window =
      SDL_CreateWindow(options.title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                       static_cast<int>(std::lround(options.size.width * factor)),
                       static_cast<int>(std::lround(options.size.height * factor)),
                       SDL_WINDOW_OPENGL | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI);
  if (state->window == nullptr) return error("the window cannot be opened");
  if (const double own = density(state->window); own > 1 && options.scale > 0)
    SDL_SetWindowSize(state->window,
                      static_cast<int>(std::lround(options.size.width * factor / own)),
                      static_cast<int>(std::lround(options.size.height * factor / own)));
  SDL_SetWindowMinimumSize(state->window, static_cast<int>(280 * factor),
                           static_cast<int>(320 * factor));
  state->context = SDL_GL_CreateContext(state->window);
  if (state->context == nullptr) return error("the driver does not support OpenGL ES 3.0");
  SDL_GL_SetSwapInterval(1);
  return std::unique_ptr<WindowSurface>(new WindowSurface(std::move(state)));
}

double WindowSurface::scale() const {
  return state_->wantedScale > 0 ? state_->wantedScale : density(state_->window);
}

graphics::Size WindowSurface::size() const {
  const Pair pixels = pixelsOf(state_->window);
  return {std::max(1, pixels.width) / scale(), std::max(1, pixels.height) / scale()};
}

graphics::Point WindowSurface::pointAt(double x, double y) const {
  const double factor = density(state_->window) / scale();
  return {x * factor, y * factor};
}

SDL_Window* WindowSurface::window() const { return state_->window; }

void WindowSurface::present() { SDL_GL_SwapWindow(state_->window); }

std::shared_ptr<const graphics::Image> WindowSurface::read() const {
  const Pair pixels = pixelsOf(state_->window);
  const std::size_t stride = std::size_t{4} * static_cast<std::size_t>(pixels.width);
  std::vector<std::uint8_t> bytes(stride * static_cast<std::size_t>(pixels.height));
  glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
  glPixelStorei(GL_PACK_ALIGNMENT, 4);
  glReadPixels(0, 0, pixels.width, pixels.height, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
  const auto rows = static_cast<std::size_t>(pixels.height);
  for (std::size_t row = 0; row < rows / 2; ++row)
    std::swap_ranges(&bytes[row * stride], &bytes[row * stride] + stride,
                     &bytes[(rows - 1 - row) * stride]);
  for (std::size_t i = 3; i < bytes.size(); i += 4) bytes[i] = 255;  // windows are opaque
  return graphics::Image::make(static_cast<std::uint32_t>(pixels.width),
                               static_cast<std::uint32_t>(pixels.height), std::move(bytes),
                               scale());
}

}  // namespace orivanta::render
