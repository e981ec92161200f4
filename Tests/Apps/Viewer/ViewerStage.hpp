// A viewer without a window: simulates input and renders images.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <stdexcept>

#include "Apps/DemoVenue/Folder.hpp"
#include "Apps/Server/VenueServer.hpp"
#include "Apps/Viewer/Viewer.hpp"
#include "Platform/Foundation/MainQueue.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/CountedPixels.hpp"
#include "Tests/Support/EnvironmentVariable.hpp"
#include "Tests/Support/Latch.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::test {

/// Returns a server of the demo venue, on the given port or any free one.
inline std::unique_ptr<server::VenueServer> serveDemo(std::uint16_t port = 0) {
  server::ServerOptions options;
  options.folders = {demo::demoVenueFolder().value()};
  options.port = port;
  return std::make_unique<server::VenueServer>(options);
}

inline ApiSettings settingsFor(const std::string& endpoint) {
  ApiSettings settings;
  settings.endpoint = endpoint;
  settings.username = "";
  settings.password = "";
  return settings;
}

class ViewerStage {
 public:
  explicit ViewerStage(const std::string& endpoint, std::optional<std::string> slug,
                       graphics::Size shownSize = {1280, 800}, const std::string& language = "en",
                       bool walksAtOnce = false,
                       std::shared_ptr<const MapTheme> theme = MapTheme::light())
      : size(shownSize),
        viewer({.settings = settingsFor(endpoint),
                .slug = std::move(slug),
                .languages = language,
                .clock = [] { return noon; },
                .walksAtOnce = walksAtOnce,
                .theme = std::move(theme)}) {
    viewer.resize(size, 1);
  }

  explicit ViewerStage(viewer::ViewerOptions options)
      : size(1280, 800), viewer(std::move(options)) {
    viewer.resize(size, 1);
  }

  /// Runs the viewer until `happened` returns true. Throws after a time limit.
  void until(const std::function<bool()>& happened) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!happened()) {
      if (std::chrono::steady_clock::now() > end) throw std::runtime_error("timed out");
      foundation::mainQueue::wait(0.02);
      foundation::mainQueue::drain();
      viewer.advance(time += 0.1);
    }
  }

  /// Waits until the map is shown and the camera rests.
  viewer::VenueView& untilShown() {
    until([this] {
      return viewer.venueView() && viewer.venueView()->camera().isReady() && !viewer.isMoving();
    });
    return *viewer.venueView();
  }

  /// Waits until the camera no longer glides.
  void settle() {
    until([this] { return !viewer.venueView() || !viewer.venueView()->camera().isGliding(); });
  }

  void tap(graphics::Point at) {
    for (const auto phase : {view::TouchPhase::began, view::TouchPhase::ended}) {
      const view::Touch touch{1, phase, at, time += 0.05};
      viewer.touch({&touch, 1});
    }
    settle();
  }

  /// Taps the center of a view.
  void tap(const view::View& view) {
    const graphics::Size part = view.bounds().size;
    tap(view.convert({part.width / 2, part.height / 2}, *viewer.root()));
  }

  void type(std::string_view text) { viewer.textTyped(text); }

  std::shared_ptr<Location> place(const std::string& id) const {
    for (const auto& location : *viewer.venueView()->venue()->locations)
      if (location->id == id) return location;
    throw std::runtime_error("no place " + id);
  }

  /// Draws the viewer with one renderer for all pictures, as a window does.
  std::shared_ptr<const graphics::Image> picture() {
    viewer.advance(time += 0.1);
    if (!drawing_ || !(drawing_->size == size)) drawing_ = std::make_unique<Drawing>(size);
    drawing_->surface->makeCurrent();
    drawing_->renderer.render(*viewer.root(), size, 1, time, drawing_->surface->framebuffer());
    return drawing_->surface->read();
  }

  /// Plans a route between two places and waits for it, or for the reason why there is none.
  viewer::VenueView& untilPlanned(const std::string& from, const std::string& to) {
    viewer::VenueView& view = *viewer.venueView();
    view.select(place(from));
    view.panels().card->fromHere();
    view.select(place(to));
    view.panels().card->toHere();
    until([&] { return !view.session().isPlanning(); });
    settle();
    return view;
  }

  static constexpr guidance::LocalTime noon{2026, 11, 20, 12, 0};

  graphics::Size size;
  DiagnosticLines quiet;
  double time = 0;
  viewer::Viewer viewer;

 private:
  struct Drawing {
    explicit Drawing(graphics::Size drawnSize)
        : size(drawnSize),
          surface(render::OffscreenSurface::make(static_cast<std::uint32_t>(size.width),
                                                 static_cast<std::uint32_t>(size.height))
                      .value()) {}
    ~Drawing() { surface->makeCurrent(); }  // for the renderer's destructor
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    const graphics::Size size;
    const std::unique_ptr<render::OffscreenSurface> surface;
    render::Renderer renderer;
  };

  std::unique_ptr<Drawing> drawing_;
};

/// Closing a window would unload the driver, and the leak checker could then no longer follow the
/// driver's memory. The display of an offscreen surface stays open until the process ends.
inline void keepDriverLoaded() { render::OffscreenSurface::make(1, 1); }

}  // namespace orivanta::test
