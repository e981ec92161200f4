// Draws the floor of the benchmarks into an image.
#pragma once

#include <benchmark/benchmark.h>

#include <memory>
#include <utility>
#include <variant>

#include "Benchmarks/SeenFloor.hpp"
#include "Platform/Foundation/Error.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/View/SceneView.hpp"

namespace orivanta::benchmarks {

/// The fraction of pixels (of 4 bytes) that are not white.
inline double shareOfColored(std::span<const std::uint8_t> pixels) {
  std::size_t colored = 0;
  for (std::size_t i = 0; i + 3 < pixels.size(); i += 4)
    colored += pixels[i] < 250 || pixels[i + 1] < 250 || pixels[i + 2] < 250 ? 1U : 0U;
  return 4.0 * static_cast<double>(colored) / static_cast<double>(pixels.size());
}

/// Needs no display. Not thread-safe.
class Stage {
 public:
  explicit Stage(std::unique_ptr<render::OffscreenSurface> surface)
      : surface_(std::move(surface)),
        view_(std::make_shared<view::SceneView>(graphics::Rect{{0, 0}, SeenFloor::pictureSize})) {
    view_->setScene(floor.scene);
  }

  /// Draws a frame and reads the image, which waits until the driver has finished.
  void draw() {
    handOver();
    benchmark::DoNotOptimize(surface_->read());
  }

  /// Draws a frame without waiting for the driver.
  void handOver() {
    renderer_.render(*view_, SeenFloor::pictureSize, 1.0, time_ += 1.0 / 60,
                     surface_->framebuffer());
  }

  const render::FrameStatistics& statistics() const { return renderer_.statistics(); }

  /// The fraction of pixels that are not background.
  double coverage() { return shareOfColored(surface_->read()->pixels()); }

  const view::SceneView& view() const { return *view_; }

  void report(benchmark::State& state) const {
    state.counters["draws"] = renderer_.statistics().drawCalls;
    state.counters["triangles"] = renderer_.statistics().triangles;
    state.counters["uploaded"] = static_cast<double>(renderer_.statistics().bytesUploaded);
  }

  SeenFloor floor;

 private:
  std::unique_ptr<render::OffscreenSurface> surface_;
  render::Renderer renderer_;
  std::shared_ptr<view::SceneView> view_;
  double time_ = 0.0;
};

/// Calls act(stage), or reports why there is none.
template <class Act>
void onStage(benchmark::State& state, const Act& act) {
  auto surface = render::OffscreenSurface::make(1280, 800);
  if (!surface) {
    state.SkipWithError(surface.error().description.c_str());
    return;
  }
  Stage stage(std::move(*surface));
  act(stage);
}

}  // namespace orivanta::benchmarks
