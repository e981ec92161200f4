// What happens to a floor besides being drawn: loading, highlighting, hit tests.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <utility>
#include <variant>

#include "Benchmarks/Stage.hpp"
#include "Benchmarks/WrittenModel.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Scene/Batch.hpp"
#include "Platform/Scene/Geometry.hpp"
#include "Platform/Scene/Material.hpp"
#include "Source/UI/AssetLoader.hpp"

namespace orivanta::benchmarks {
namespace {

// From the file to what is handed to the driver.
void load(benchmark::State& state) {
  const WrittenModel written(1);
  const auto url = foundation::Url::fromFile(written.file());
  AssetLoader loader;
  for (auto _ : state) {
    const auto floor = loader.readModel(url);
    benchmark::DoNotOptimize(scene::Batch::make(*std::get<0>(floor)));
  }
}
BENCHMARK(load)->Name("Floor.load");

void merge(benchmark::State& state) {
  const SeenFloor floor;
  for (auto _ : state) benchmark::DoNotOptimize(scene::Batch::make(*floor.rooms));
}
BENCHMARK(merge)->Name("Floor.merge");

double seconds(const std::function<void()>& act) {
  const auto start = std::chrono::steady_clock::now();
  act();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Another colour for one room, and by how much longer the next frame takes for that than one
// without, on the side of the library: the driver has nothing of the floor to draw. It takes
// less than the clock's noise, which counts against it.
void highlight(benchmark::State& state) {
  onStage(state, [&](Stage& stage) {
    stage.draw();
    stage.floor.lookAway();
    const auto material = stage.floor.rooms->children().front()->geometry()->firstMaterial();
    std::array colors{graphics::colors::red, graphics::colors::blue};
    for (auto _ : state) {
      std::swap(colors[0], colors[1]);
      stage.draw();
      const double without = seconds([&] { stage.handOver(); });
      stage.draw();
      const double with = seconds([&] {
        material->setDiffuseContents(colors[0]);
        stage.handOver();
      });
      state.SetIterationTime(std::max(with - without, 0.0));
    }
    stage.report(state);
  });
}
BENCHMARK(highlight)->Name("Floor.highlight")->UseManualTime();

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
