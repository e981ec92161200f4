// Searches routes between random nodes of malls with the library, with the same search using a
// sorted list, and with A* of the Boost Graph Library. Measures the time per query.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "Benchmarks/BoostRouteSearch.hpp"
#include "Benchmarks/Mall.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Tests/Support/ListRouteSearch.hpp"

namespace orivanta::benchmarks {
namespace {

using Query = std::pair<NodeList, NodeList>;

struct Scenario {
  explicit Scenario(std::size_t nodeCount)
      : mall(makeMall(nodeCount, 0.2, 1)), boost(mall.nodes, *mall.graph) {
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> any(0, mall.nodes.size() - 1);
    const std::size_t queryCount = std::clamp<std::size_t>(1'000'000 / nodeCount, 20, 100);
    while (queries.size() < queryCount)
      queries.push_back({{mall.nodes[any(random)]}, {mall.nodes[any(random)]}});
    for (const auto& [from, to] : queries) found.push_back(searchRoute(from, to, *mall.graph));
  }

  Mall mall;
  BoostRouteSearch boost;
  std::vector<Query> queries;
  std::vector<std::optional<Route>> found;
};

Scenario& scenarioOf(const benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<Scenario>> scenarios;
  auto& scenario = scenarios[state.range(0)];
  if (!scenario) scenario = std::make_unique<Scenario>(static_cast<std::size_t>(state.range(0)));
  return *scenario;
}

template <class Search>
void searchAll(benchmark::State& state, const Scenario& scenario, const Search& search) {
  for (auto _ : state)
    for (const Query& query : scenario.queries) benchmark::DoNotOptimize(search(query));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(scenario.queries.size()));
}

void withLibrary(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  std::size_t taken = 0;
  for (const auto& route : scenario.found) taken += route ? route->takenNodes : 0;
  state.counters["taken"] = static_cast<double>(taken / scenario.queries.size());
  searchAll(state, scenario, [&](const Query& query) {
    return searchRoute(query.first, query.second, *scenario.mall.graph);
  });
}

void withList(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  std::size_t next = 0;
  searchAll(state, scenario, [&](const Query& query) {
    const auto route = test::searchRouteWithList(query.first, query.second, *scenario.mall.graph);
    const auto& expected = scenario.found[next++ % scenario.found.size()];
    if (route.has_value() != expected.has_value() ||
        (route && (route->path != expected->path || route->cost != expected->cost)))
      state.SkipWithError("the library's search found another route");
    return route;
  });
}

void withBoost(benchmark::State& state) {
  Scenario& scenario = scenarioOf(state);
  searchAll(state, scenario, [&](const Query& query) {
    return scenario.boost.search(*query.first.front(), *query.second.front());
  });
}

void malls(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(withLibrary)->Name("RouteSearch")->Apply(malls);
BENCHMARK(withList)->Name("RouteSearch.list")->Apply(malls);
BENCHMARK(withBoost)->Name("RouteSearch.boost")->Apply(malls);

}  // namespace
}  // namespace orivanta::benchmarks
