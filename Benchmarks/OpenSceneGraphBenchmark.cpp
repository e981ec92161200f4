// Draws the frame of `FrameBenchmark` with OpenSceneGraph, which redraws its shadow map each time.

#include <benchmark/benchmark.h>

#include <cmath>
#include <stdexcept>

#include "Benchmarks/OpenSceneGraphStage.hpp"
#include "Benchmarks/Stage.hpp"

namespace orivanta::benchmarks {
namespace {

// Properties of the library's image of the floor that the baseline has to match.
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
      return state.SkipWithError("its image differs from the library's");
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
