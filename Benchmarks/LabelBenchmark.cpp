// The work on labels: placing 2,000 of them in the frames of a moving camera, and finding the
// anchors of areas. `p99` and `most` are milliseconds of single frames, in processor time.

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "Benchmarks/ThreadTimes.hpp"
#include "Source/UI/Labels/LabelPlacement.hpp"
#include "Tests/Support/LabelScene.hpp"

namespace orivanta::benchmarks {
namespace {

// Projecting the anchors is not measured.
void placement(benchmark::State& state) {
  test::LabelScene scene;
  LabelPlacement placement;
  placement.setLabels(scene.labels);
  ThreadTimes times(state);
  std::size_t shown = 0;
  int number = 0;
  for (auto _ : state) {
    const LabelFrame frame = scene.frame(number++);
    times.measure([&] { placement.update(frame); });
    shown += placement.shown().size();
  }
  times.report();
  state.counters["shown"] = static_cast<double>(shown) / static_cast<double>(times.count());
}
BENCHMARK(placement)->Name("Labels.place/2000")->UseManualTime()->Iterations(1800);

// Round areas with this number of corners and a round hole.
void anchor(benchmark::State& state) {
  const auto ring = [&](double radius) {
    std::vector<graphics::Point> corners;
    for (int i = 0; i < state.range(0); ++i) {
      const double angle = 6.283185307 * i / static_cast<double>(state.range(0));
      corners.push_back({radius * std::cos(angle) * 2, radius * std::sin(angle)});
    }
    return corners;
  };
  LabelArea area;
  area.addRing(ring(10));
  area.addRing(ring(3), true);
  for (auto _ : state) benchmark::DoNotOptimize(labelAnchor(area));
}
BENCHMARK(anchor)->Name("Labels.anchor")->Arg(4)->Arg(40)->Arg(400)->Arg(40'000);

}  // namespace
}  // namespace orivanta::benchmarks
