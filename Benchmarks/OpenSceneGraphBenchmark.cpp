// The frame of `FrameBenchmark`, drawn by OpenSceneGraph. It draws its shadow map each time.

#include <benchmark/benchmark.h>

#include <stdexcept>

#include "Benchmarks/OpenSceneGraphStage.hpp"
#include "Benchmarks/SeenFloor.hpp"

namespace orivanta::benchmarks {
namespace {

void drawFrames(benchmark::State& state) {
  SeenFloor floor;
  try {
    OpenSceneGraphStage stage(floor);
    stage.draw();
    for (auto _ : state) {
      floor.turnCamera();
      stage.draw();
    }
  } catch (const std::runtime_error& error) {
    state.SkipWithError(error.what());
  }
}
BENCHMARK(drawFrames)->Name("Frame.openscenegraph")->MeasureProcessCPUTime();

}  // namespace
}  // namespace orivanta::benchmarks
