// Searches a venue of 2,000 places after each key of typed texts, as a search field does. `p99` and
// `most` are milliseconds of single searches, in processor time.

#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <time.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "Source/Guidance/PlaceSearch.hpp"
#include "Source/Location.hpp"
#include "Source/Polygon.hpp"

namespace orivanta::benchmarks {
namespace {

double threadSeconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::vector<std::shared_ptr<Location>> makePlaces() {
  constexpr std::array<const char*, 8> first{"Amber",  "Copper", "Marble", "Silver",
                                             "Velvet", "Willow", "Quiet",  "Paper"};
  constexpr std::array<const char*, 5> second{"Coffee House", "Books & Maps", "Toilet", "Bakery",
                                              "Electronics"};
  std::vector<std::shared_ptr<Location>> places;
  for (std::size_t i = 0; i < 2000; ++i) {
    places.push_back(Location::make(*RawData::parse(fmt::format(
        R"({{"id": "{0}", "name": "{1} {2} {0}", "type": "shop",
             "description": "The {1} one with a long description of what it offers"}})",
        i, first[i % first.size()], second[i % second.size()]))));
    places.back()->polygons.push_back(
        Polygon::make(*RawData::parse(fmt::format(R"({{"id": "p{}"}})", i))));
  }
  return places;
}

void keyPress(benchmark::State& state) {
  const PlaceSearch search(makePlaces());
  constexpr std::array<std::string_view, 4> texts{"coffee house 17", "elevator", "wc",
                                                  "long description"};
  std::vector<std::string_view> typed;
  for (const std::string_view text : texts)
    for (std::size_t length = 1; length <= text.size(); ++length)
      typed.push_back(text.substr(0, length));
  std::vector<double> times;
  for (auto _ : state) {
    const double start = threadSeconds();
    benchmark::DoNotOptimize(search.find(typed[times.size() % typed.size()]));
    const double time = threadSeconds() - start;
    state.SetIterationTime(time);
    times.push_back(time * 1e3);
  }
  std::sort(times.begin(), times.end());
  state.counters["p99"] = times[times.size() * 99 / 100];
  state.counters["most"] = times.back();
}
BENCHMARK(keyPress)->Name("Search.key/2000")->UseManualTime()->Iterations(2000);

}  // namespace
}  // namespace orivanta::benchmarks
