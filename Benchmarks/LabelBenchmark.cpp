// The work on labels: placing 2,000 of them in the frames of a moving camera, and finding the
// anchors of areas. `p99` and `most` are milliseconds of single frames, in processor time.

#include <benchmark/benchmark.h>
#include <time.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "Source/UI/Labels/LabelPlacement.hpp"
#include "Tests/Support/LabelScene.hpp"

namespace orivanta::benchmarks {
namespace {

// Processor time of the calling thread in seconds. Real time includes that of other programs.
double threadTime() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Projecting the anchors is not measured.
void placement(benchmark::State& state) {
  test::LabelScene scene;
  LabelPlacement placement;
  placement.setLabels(scene.labels);
  std::vector<double> times;
  std::size_t shown = 0;
  int number = 0;
  for (auto _ : state) {
    const LabelFrame frame = scene.frame(number++);
    const double start = threadTime();
    placement.update(frame);
    const double time = threadTime() - start;
    state.SetIterationTime(time);
    times.push_back(time * 1e3);
    shown += placement.shown().size();
  }
  std::sort(times.begin(), times.end());
  state.counters["p99"] = times[times.size() * 99 / 100];
  state.counters["most"] = times.back();
  state.counters["shown"] = static_cast<double>(shown) / static_cast<double>(times.size());
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
