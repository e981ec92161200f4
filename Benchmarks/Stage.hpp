// Draws the floor of the benchmarks into a picture.
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

/// Of pixels of 4 bytes, the share that is not white.
inline double shareOfColored(std::span<const std::uint8_t> pixels) {
  std::size_t colored = 0;
  for (std::size_t i = 0; i + 3 < pixels.size(); i += 4)
    colored += pixels[i] < 250 || pixels[i + 1] < 250 || pixels[i + 2] < 250 ? 1U : 0U;
  return 4.0 * static_cast<double>(colored) / static_cast<double>(pixels.size());
}

/// Without a display. One thread.
class Stage {
 public:
  explicit Stage(std::unique_ptr<render::OffscreenSurface> surface)
      : surface_(std::move(surface)),
        view_(std::make_shared<view::SceneView>(graphics::Rect{{0, 0}, SeenFloor::pictureSize})) {
    view_->setScene(floor.scene);
  }

  /// Reading the picture waits until the driver has drawn it.
  void draw() {
    handOver();
    benchmark::DoNotOptimize(surface_->read());
  }

  /// A frame without waiting for it.
  void handOver() {
    renderer_.render(*view_, SeenFloor::pictureSize, 1.0, time_ += 1.0 / 60,
                     surface_->framebuffer());
  }

  const render::FrameStatistics& statistics() const { return renderer_.statistics(); }

  /// The share of pixels that are not the white background.
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

/// Calls act(stage), or reports why there is no stage.
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
