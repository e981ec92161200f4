// Searches a venue of 2,000 places after each key of typed texts, as a search field does. `p99` and
// `most` are milliseconds of single searches, in processor time.

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include <array>
#include <string_view>
#include <vector>

#include "Benchmarks/ThreadTimes.hpp"
#include "Source/Guidance/PlaceSearch.hpp"
#include "Source/Location.hpp"
#include "Source/Polygon.hpp"

namespace orivanta::benchmarks {
namespace {

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
  ThreadTimes times(state);
  for (auto _ : state) {
    const std::string_view text = typed[times.count() % typed.size()];
    times.measure([&] { benchmark::DoNotOptimize(search.find(text)); });
  }
  times.report();
}
BENCHMARK(keyPress)->Name("Search.key/2000")->UseManualTime()->Iterations(2000);

void emptyText(benchmark::State& state) {
  const PlaceSearch search(makePlaces());
  for (auto _ : state) benchmark::DoNotOptimize(search.find(""));
}
BENCHMARK(emptyText)->Name("Search.empty/2000");

void indexing(benchmark::State& state) {
  const auto places = makePlaces();
  for (auto _ : state) benchmark::DoNotOptimize(PlaceSearch(places));
}
BENCHMARK(indexing)->Name("Search.index/2000");

}  // namespace
}  // namespace orivanta::benchmarks
