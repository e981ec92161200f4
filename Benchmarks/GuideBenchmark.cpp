// Plans routes in malls, and does the same with the specified search and with the Boost Graph
// Library. Measures the time per query. ORIVANTA_GUIDE_NETWORK names a file that receives the
// network of 10,000 nodes and the queries, for Benchmarks/compare-guide.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "Benchmarks/BoostGuide.hpp"
#include "Benchmarks/Mall.hpp"
#include "Source/Category.hpp"
#include "Source/Guidance/Guide.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Network/NetworkSearch.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/RouteSearch.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"

namespace orivanta::benchmarks {
namespace {

using guidance::CostTable;
using guidance::Guide;
using guidance::Plan;
using guidance::Request;
using Index = guidance::GuideNetwork::Index;

std::shared_ptr<Venue> venueOf(const Mall& mall) {
  auto venue = Venue::make(*RawData::parse(R"({"id": "m", "slug": "m", "name": "Mall",
                                               "unitsPerMetre": 1})"));
  venue->nodes = mall.nodes;
  venue->navigationGraph = mall.graph;
  venue->vortices.emplace();
  venue->locations.emplace();
  venue->categories.emplace();
  venue->categories->push_back(Category::make(*RawData::parse(R"({"id": "c", "name": "C"})")));
  std::map<const Vortex*, std::shared_ptr<Vortex>> lifts;
  for (std::size_t i = 0; i < mall.nodes.size(); ++i) {
    mall.nodes[i]->id = "n" + std::to_string(i);
    for (const Edge& edge : (*mall.graph)[*mall.nodes[i]])
      if (edge.vortex()) lifts.emplace(edge.vortex().get(), edge.vortex());
    if (i % 250 != 0) continue;
    auto place = Location::make(*RawData::parse(R"({"id": "l)" + std::to_string(i) +
                                                R"(", "name": "Place", "type": "shop"})"));
    place->nodes.push_back(mall.nodes[i]);
    place->categories = *venue->categories;
    venue->locations->push_back(place);
  }
  for (const auto& entry : lifts) venue->vortices->push_back(entry.second);
  return venue;
}

struct Query {
  std::shared_ptr<Node> from, to;
  Index start, goal;
};

struct Scenario {
  explicit Scenario(std::size_t nodeCount)
      : mall(makeMall(nodeCount, 0.2, 1)),
        venue(venueOf(mall)),
        guide(Guide::make(*venue)),
        data(*venue),
        costs(data.network, {}),
        boost(data.network, costs) {
    std::mt19937 random(1);
    std::uniform_int_distribution<std::size_t> any(0, mall.nodes.size() - 1);
    while (queries.size() < std::clamp<std::size_t>(1'000'000 / nodeCount, 20, 100)) {
      const auto& from = mall.nodes[any(random)];
      const auto& to = mall.nodes[any(random)];
      queries.push_back({from, to, *data.network.find(from.get()), *data.network.find(to.get())});
    }
    for (const auto& location : *venue->locations)
      places.insert(*data.network.find(location->nodes.front().get()));
  }

  Mall mall;
  std::shared_ptr<Venue> venue;
  std::shared_ptr<const Guide> guide;
  guidance::GuideData data;
  CostTable costs;
  BoostGuide boost;
  std::vector<Query> queries;
  std::unordered_set<Index> places;
};

void writeNetwork(const Scenario& scenario, const char* path) {
  std::ofstream file(path);
  const auto arcs = scenario.data.network.arcs();
  file << scenario.data.network.size() << ' ' << arcs.size() << ' ' << scenario.queries.size()
       << '\n';
  for (Index arc = 0; arc < arcs.size(); ++arc)
    file << arcs[arc].origin << ' ' << arcs[arc].target << ' ' << scenario.costs[arc] << '\n';
  for (const Query& query : scenario.queries) {
    Request request;
    request.stops = {query.from, query.to};
    const Plan plan = scenario.guide->plan(request);
    file << query.start << ' ' << query.goal << ' '
         << (plan.problem ? -1 : plan.itineraries.front().costMilliseconds) << '\n';
  }
}

Scenario& scenarioOf(const benchmark::State& state) {
  static std::map<std::int64_t, std::unique_ptr<Scenario>> scenarios;
  auto& scenario = scenarios[state.range(0)];
  if (!scenario) {
    scenario = std::make_unique<Scenario>(static_cast<std::size_t>(state.range(0)));
    const char* path = std::getenv("ORIVANTA_GUIDE_NETWORK");
    if (path != nullptr && state.range(0) == 10'000) writeNetwork(*scenario, path);
  }
  return *scenario;
}

template <class Search>
void searchAll(benchmark::State& state, const Scenario& scenario, const Search& search) {
  for (auto _ : state)
    for (const Query& query : scenario.queries) benchmark::DoNotOptimize(search(query));
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(scenario.queries.size()));
}

std::int64_t planned(const Scenario& scenario, const Query& query,
                     guidance::Closures closures = {}) {
  Request request;
  request.stops = {query.from, query.to};
  request.closures = std::move(closures);
  const Plan plan = scenario.guide->plan(request);
  return plan.problem ? -1 : plan.itineraries.front().costMilliseconds;
}

void withGuide(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  searchAll(state, scenario, [&](const Query& query) { return planned(scenario, query); });
}

void withSpecifiedSearch(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  searchAll(state, scenario, [&](const Query& query) {
    return searchRoute({query.from}, {query.to}, *scenario.mall.graph);
  });
}

void withBoost(benchmark::State& state) {
  Scenario& scenario = scenarioOf(state);
  for (const Query& query : scenario.queries)
    if (scenario.boost.search(query.start, query.goal).value_or(-1) != planned(scenario, query))
      state.SkipWithError("the guide found another cost");
  searchAll(state, scenario,
            [&](const Query& query) { return scenario.boost.search(query.start, query.goal); });
}

// Each query closes another node, so that no table of costs is in the cache.
void withNewClosure(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  std::size_t closed = 0;
  searchAll(state, scenario, [&](const Query& query) {
    const auto& node = scenario.mall.nodes[closed++ % scenario.mall.nodes.size()];
    return planned(scenario, query, guidance::Closures({*node->id}));
  });
}

void nearest(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  searchAll(state, scenario, [&](const Query& query) {
    return scenario.guide->nearest(query.from, scenario.venue->categories->front());
  });
}

void nearestWithBoost(benchmark::State& state) {
  Scenario& scenario = scenarioOf(state);
  searchAll(state, scenario, [&](const Query& query) {
    return scenario.boost.nearest(query.start, scenario.places);
  });
}

void oneToAll(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  const guidance::SearchContext context{scenario.data.network, scenario.data.states};
  searchAll(state, scenario, [&](const Query& query) {
    guidance::NetworkSearch search(context, scenario.costs, 0);
    guidance::Ends start;
    start.vertices.push_back(query.start);
    search.startFrom(start);
    return search.next();
  });
}

void oneToAllWithBoost(benchmark::State& state) {
  Scenario& scenario = scenarioOf(state);
  searchAll(state, scenario,
            [&](const Query& query) { return scenario.boost.spread(query.start); });
}

std::vector<guidance::Stop> starts(const Scenario& scenario) {
  std::vector<guidance::Stop> stops;
  for (std::size_t i = 0; i < 16; ++i) stops.emplace_back(scenario.queries[i].from);
  return stops;
}

void costRows(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  const auto stops = starts(scenario);
  for (auto _ : state) benchmark::DoNotOptimize(scenario.guide->costs(stops, stops));
}

void costRowsOneByOne(benchmark::State& state) {
  const Scenario& scenario = scenarioOf(state);
  const auto stops = starts(scenario);
  for (auto _ : state)
    for (const auto& stop : stops) benchmark::DoNotOptimize(scenario.guide->costs({stop}, stops));
}

void malls(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(withGuide)->Name("Guide")->Apply(malls);
BENCHMARK(withSpecifiedSearch)->Name("Guide.specified")->Apply(malls);
BENCHMARK(withBoost)->Name("Guide.boost")->Apply(malls);
BENCHMARK(withNewClosure)->Name("Guide.closure")->Apply(malls);
BENCHMARK(nearest)->Name("Guide.nearest")->Apply(malls);
BENCHMARK(nearestWithBoost)->Name("Guide.nearest.boost")->Apply(malls);
BENCHMARK(oneToAll)->Name("Guide.oneToAll")->Apply(malls);
BENCHMARK(oneToAllWithBoost)->Name("Guide.oneToAll.boost")->Apply(malls);
BENCHMARK(costRows)->Name("Guide.costs")->Arg(100'000)->UseRealTime();
BENCHMARK(costRowsOneByOne)->Name("Guide.costs.oneByOne")->Arg(100'000)->UseRealTime();

}  // namespace
}  // namespace orivanta::benchmarks
