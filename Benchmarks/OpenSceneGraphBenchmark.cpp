// The frame of `FrameBenchmark`, drawn by OpenSceneGraph. It draws its shadow map each time.

#include <benchmark/benchmark.h>

#include <cmath>
#include <stdexcept>

#include "Benchmarks/OpenSceneGraphStage.hpp"
#include "Benchmarks/Stage.hpp"

namespace orivanta::benchmarks {
namespace {

// What the library makes of the floor, which the rival has to match.
struct Picture {
  double coverage = 0;
  int shadowMapSide = 0;
};

Picture pictureOfTheLibrary() {
  auto surface = render::OffscreenSurface::make(1280, 800);
  if (!surface) return {};
  Stage stage(std::move(*surface));
  stage.draw();
  return {stage.coverage(), stage.statistics().shadowMapSide};
}

void drawFrames(benchmark::State& state, bool isToldThatRoomsAreClosed) {
  static const Picture expected = pictureOfTheLibrary();
  SeenFloor floor;
  try {
    OpenSceneGraphStage stage(floor, expected.shadowMapSide, isToldThatRoomsAreClosed);
    stage.draw();
    if (std::abs(shareOfColored(stage.pixels()) - expected.coverage) > 0.01)
      return state.SkipWithError("it shows something else than the library does");
    for (auto _ : state) {
      floor.turnCamera();
      stage.draw();
    }
    state.counters["shadowMapSide"] = expected.shadowMapSide;
  } catch (const std::runtime_error& error) {
    state.SkipWithError(error.what());
  }
}

void asItReads(benchmark::State& state) { drawFrames(state, false); }
BENCHMARK(asItReads)->Name("Frame.openscenegraph")->MeasureProcessCPUTime();

void toldOfClosedRooms(benchmark::State& state) { drawFrames(state, true); }
BENCHMARK(toldOfClosedRooms)->Name("Frame.openscenegraphToldMore")->MeasureProcessCPUTime();

}  // namespace
}  // namespace orivanta::benchmarks
