// Draws frames of a floor with 1,500 rooms and 150,000 triangles at 1280 by 800 pixels. Measures
// processor time of all threads, because a software driver uses several.

#include <benchmark/benchmark.h>

#include "Benchmarks/Stage.hpp"

namespace orivanta::benchmarks {
namespace {

constexpr int mostOfTheFloor = 140'000;  // triangles

// When the camera is turned, a few rooms are not visible.
void drawFrames(benchmark::State& state, Stage& stage, int leastTriangles,
                void (SeenFloor::*change)()) {
  stage.draw();
  for (auto _ : state) {
    (stage.floor.*change)();
    stage.draw();
  }
  stage.report(state);
  if (stage.statistics().triangles < leastTriangles) state.SkipWithError("the floor was not drawn");
}

void camera(benchmark::State& state) {
  onStage(state,
          [&](Stage& stage) { drawFrames(state, stage, mostOfTheFloor, &SeenFloor::turnCamera); });
}
BENCHMARK(camera)->Name("Frame/camera")->MeasureProcessCPUTime();

// Nothing changes in the scene, as when only a panel above it changes.
void still(benchmark::State& state) {
  onStage(state, [&](Stage& stage) { drawFrames(state, stage, 0, &SeenFloor::stayAsItIs); });
}
BENCHMARK(still)->Name("Frame/still")->MeasureProcessCPUTime();

// The shadow map is redrawn.
void light(benchmark::State& state) {
  onStage(state, [&](Stage& stage) {
    drawFrames(state, stage, 2 * mostOfTheFloor, &SeenFloor::turnLight);
  });
}
BENCHMARK(light)->Name("Frame/light")->MeasureProcessCPUTime();

void route(benchmark::State& state) {
  onStage(state, [&](Stage& stage) {
    stage.floor.scene->rootNode()->addChild(
        test::makeSyntheticRoute(static_cast<int>(state.range(0)), SeenFloor::columns));
    drawFrames(state, stage, mostOfTheFloor, &SeenFloor::turnCamera);
  });
}
BENCHMARK(route)->Name("Frame.route")->Arg(500)->MeasureProcessCPUTime();

}  // namespace
}  // namespace orivanta::benchmarks
