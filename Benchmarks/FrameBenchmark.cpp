// One frame of a floor of 1,500 rooms and 30,000 triangles, at 1280 by 800 pixels.

#include <benchmark/benchmark.h>

#include <memory>
#include <variant>

#include "Platform/Foundation/Error.hpp"
#include "Platform/Render/Offscreen/OffscreenSurface.hpp"
#include "Platform/Render/Renderer.hpp"
#include "Platform/Scene/Material.hpp"
#include "Platform/Scene/Node.hpp"
#include "Platform/View/SceneView.hpp"
#include "Tests/Support/SyntheticFloor.hpp"

namespace orivanta::benchmarks {
namespace {

constexpr int columns = 50;
constexpr int rows = 30;
constexpr graphics::Size size{1280, 800};

class Stage {
 public:
  Stage(std::unique_ptr<render::OffscreenSurface> surface, int segments)
      : surface_(std::move(surface)),
        view_(std::make_shared<view::SceneView>(graphics::Rect{{0, 0}, size})),
        floor_(test::makeSyntheticFloor(columns, rows)) {
    const auto scene = scene::Scene::make();
    scene->rootNode()->addChild(floor_);
    if (segments > 0) scene->rootNode()->addChild(test::makeSyntheticRoute(segments, columns));
    test::lightAndWatch(*scene, columns, rows);
    view_->setScene(scene);
    draw();
  }

  // Reading one picture waits until the driver has drawn it.
  void draw() {
    renderer_.render(*view_, size, 1.0, time_ += 1.0 / 60, surface_->framebuffer());
    benchmark::DoNotOptimize(surface_->read());
  }

  const render::FrameStatistics& statistics() const { return renderer_.statistics(); }

 private:
  std::unique_ptr<render::OffscreenSurface> surface_;
  render::Renderer renderer_;
  std::shared_ptr<view::SceneView> view_;
  std::shared_ptr<scene::Node> floor_;
  double time_ = 0.0;
};

void drawFrames(benchmark::State& state, int segments) {
  auto surface = render::OffscreenSurface::make(1280, 800);
  if (const auto* error = std::get_if<foundation::Error>(&surface)) {
    state.SkipWithError(error->description.c_str());
    return;
  }
  Stage stage(std::move(std::get<0>(surface)), segments);
  for (auto _ : state) stage.draw();
  state.counters["draws"] = stage.statistics().drawCalls;
  state.counters["triangles"] = stage.statistics().triangles;
}

// In processor time of all threads: a software driver draws with several.
void route(benchmark::State& state) { drawFrames(state, static_cast<int>(state.range(0))); }
BENCHMARK(route)->Name("Frame.route")->Arg(500)->MeasureProcessCPUTime();

void floor(benchmark::State& state) { drawFrames(state, 0); }
BENCHMARK(floor)->Name("Frame.floor")->MeasureProcessCPUTime();

}  // namespace
}  // namespace orivanta::benchmarks
