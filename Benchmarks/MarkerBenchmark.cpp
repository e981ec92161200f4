// The work on markers in a frame: where they are shown, and which of them are hidden by others.

#include <benchmark/benchmark.h>

#include <memory>
#include <random>

#include "Source/UI/MapView.hpp"
#include "Tests/Support/ShownVenue.hpp"

namespace orivanta::benchmarks {
namespace {

// Labels of 60 by 16 points all over the floor. Every second one may be hidden.
void addMarkers(MapView& mapView, std::int64_t count) {
  std::mt19937 random(1);
  std::uniform_real_distribution<float> place(0, 1000);
  for (std::int64_t i = 0; i < count; ++i) {
    const auto marker = std::make_shared<MapViewMarker2D>(graphics::Size{60, 16}, nullptr);
    marker->setPosition({place(random), place(random), 2});
    marker->hideWhenCollide = i % 2 == 0;
    mapView.addMarker(marker);
  }
}

void markers(benchmark::State& state) {
  const test::ShownVenue shown;
  addMarkers(*shown.mapView, state.range(0));
  for (auto _ : state) {
    shown.mapView->updateMarkerPositions();
    shown.mapView->updateMarkerVisibility();
  }
  state.counters["per marker"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(markers)->Name("Markers")->Arg(10)->Arg(100)->Arg(1000)->Arg(10'000);

}  // namespace
}  // namespace orivanta::benchmarks
