#include "Apps/Viewer/Window.hpp"

#include <SDL.h>
#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <limits>
#include <memory>

#include "Apps/Viewer/Input.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Graphics/ImageFile.hpp"
#include "Platform/Render/Renderer.hpp"

namespace orivanta::viewer {

namespace mainQueue = foundation::mainQueue;

namespace {

// Returns the seconds since SDL was started.
double now() {
  return static_cast<double>(SDL_GetPerformanceCounter()) /
         static_cast<double>(SDL_GetPerformanceFrequency());
}

std::string freePictureName() {
  for (int number = 1;; ++number) {
    auto name = fmt::format("orivanta-{:03}.png", number);
    std::error_code failure;
    if (!std::filesystem::exists(name, failure)) return name;
  }
}

// Wakes the event loop when the main queue has tasks, with one event for several tasks.
class Wake {
 public:
  Wake() : event_(SDL_RegisterEvents(1)) {
    mainQueue::setWake([this] {
      if (pending_.exchange(true)) return;
      SDL_Event event{};
      event.type = event_;
      SDL_PushEvent(&event);
    });
  }
  ~Wake() { mainQueue::setWake(nullptr); }
  Wake(const Wake&) = delete;
  Wake& operator=(const Wake&) = delete;

  bool drain() {
    pending_ = false;
    return mainQueue::drain();
  }

 private:
  const Uint32 event_;
  std::atomic<bool> pending_ = false;
};

class Loop {
 public:
  Loop(Viewer& viewer, render::WindowSurface& surface, Times& times, const WindowOutput& output)
      : viewer_(viewer),
        surface_(surface),
        times_(times),
        output_(output),
        input_(viewer, surface, now) {
    viewer_.pictureWanted = [this] { pictureWanted_ = true; };
    viewer_.resize(surface_.size(), surface_.scale());
  }

  void run() {
    while (!input_.isClosed()) {
      const bool draws = needsFrame() && input_.isShown();
      const bool hasEvents = input_.take(draws ? 0 : nextFrameTime() - now());
      if (wake_.drain() || hasEvents || now() >= nextFrameTime()) changed_ = true;
      if (input_.isShown() && (draws || needsFrame())) drawFrame();
    }
  }

 private:
  bool needsFrame() const { return changed_ || viewer_.isMoving() || viewer_.root()->needsFrame(); }

  double nextFrameTime() const {
    return input_.isShown() ? viewer_.nextFrameTime() : std::numeric_limits<double>::infinity();
  }

  void drawFrame() {
    const double start = now();
    changed_ = false;
    viewer_.advance(start);
    renderer_.render(*viewer_.root(), surface_.size(), surface_.scale(), start);
    if (pictureWanted_) savePicture();
    surface_.present();
    times_.frame(now() - start);
    times_.reached("first frame");
    if (viewer_.showsMap()) times_.reached("first image of the map");
    updateTitle();
    keepRate(start);
  }

  // Limits the frame rate if showing a frame does not wait for the display, for example without
  // one.
  void keepRate(double start) const {
    SDL_DisplayMode mode{};
    const int display = SDL_GetWindowDisplayIndex(surface_.window());
    const bool known = SDL_GetCurrentDisplayMode(display, &mode) == 0 && mode.refresh_rate > 0;
    const double interval = 1.0 / (known ? mode.refresh_rate : 60);
    const double left = interval - (now() - start) - 0.001;
    if (left > 0) SDL_Delay(static_cast<Uint32>(left * 1000));
  }

  void savePicture() {
    pictureWanted_ = false;
    const auto name = freePictureName();
    const auto picture = surface_.read();
    if (!picture) return viewer_.remark(viewer_.texts().text("interface.note.screenshot.failed"));
    const auto written = graphics::writePng(*picture, name);
    if (written)
      output_.write(name + '\n');
    else
      output_.warn(fmt::format("{}: {}", name, written.error().description));
    const auto& texts = viewer_.texts();
    viewer_.remark(written
                       ? texts.text("interface.note.screenshot.saved", {{"file", texts.name(name)}})
                       : texts.text("interface.note.screenshot.unsaved",
                                    {{"file", texts.name(name)},
                                     {"reason", texts.name(written.error().description)}}));
  }

  void updateTitle() {
    if (viewer_.title() == title_) return;
    title_ = viewer_.title();
    SDL_SetWindowTitle(surface_.window(), title_.c_str());
  }

  Viewer& viewer_;
  render::WindowSurface& surface_;
  Times& times_;
  const WindowOutput& output_;
  Input input_;
  Wake wake_;
  render::Renderer renderer_;
  std::string title_;
  bool changed_ = true;
  bool pictureWanted_ = false;
};

}  // namespace

void runWindow(Viewer& viewer, render::WindowSurface& surface, Times& times,
               const WindowOutput& output) {
  Loop(viewer, surface, times, output).run();
}

}  // namespace orivanta::viewer
