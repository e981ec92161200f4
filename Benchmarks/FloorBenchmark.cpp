// Operations on a floor other than drawing: loading, highlighting, hit tests.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>
#include <variant>

#include "Benchmarks/Stage.hpp"
#include "Benchmarks/ThreadTimes.hpp"
#include "Benchmarks/WrittenModel.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Source/UI/AssetLoader.hpp"

namespace orivanta::benchmarks {
namespace {

// From the file to the data for the driver.
void load(benchmark::State& state) {
  const WrittenModel written(1);
  const auto url = foundation::Url::fromFile(written.file());
  AssetLoader loader;
  for (auto _ : state) {
    const auto floor = loader.readModel(url);
    benchmark::DoNotOptimize(scene::Batch::make(*floor.value()));
  }
}
BENCHMARK(load)->Name("Floor.load");

double secondsOf(const std::function<void()>& act) {
  const double start = threadSeconds();
  act();
  return threadSeconds() - start;
}

// The cost of changing a room's color and drawing the next frame, minus that of a frame without a
// change. The camera turns, so that both frames are drawn, but it does not see the floor, whose
// triangles would hide the difference.
void highlight(benchmark::State& state) {
  onStage(state, [&](Stage& stage) {
    stage.draw();
    stage.floor.lookAway();
    const auto material = stage.floor.rooms->children().front()->geometry()->firstMaterial();
    std::array colors{graphics::colors::red, graphics::colors::blue};
    const auto frame = [&] {
      stage.floor.turnCamera();
      stage.handOver();
    };
    for (auto _ : state) {
      double difference = 0;
      for (int pair = 0; pair < 20; ++pair) {
        stage.draw();
        difference -= secondsOf(frame);
        stage.draw();
        std::swap(colors[0], colors[1]);
        difference += secondsOf([&] {
          material->setDiffuseContents(colors[0]);
          frame();
        });
      }
      state.SetIterationTime(std::max(difference / 20, 1e-9));
    }
    stage.report(state);
  });
}
BENCHMARK(highlight)->Name("Floor.highlight")->UseManualTime()->Iterations(5);

void hit(benchmark::State& state) {
  onStage(state, [&](Stage& stage) {
    std::size_t hits = 0;
    double x = 0;
    for (auto _ : state) {
      x = x > 1200 ? 80 : x + 7;
      hits += stage.view().hits({x, 500}).size();
    }
    if (hits == 0) state.SkipWithError("nothing was hit");
  });
}
BENCHMARK(hit)->Name("HitTest");

}  // namespace
}  // namespace orivanta::benchmarks
