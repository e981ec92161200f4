// One `put` into a queue of so many elements, with a take to keep its size.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <random>
#include <vector>

#include "Source/PriorityQueue.hpp"
#include "Tests/Support/LiteralPriorityQueue.hpp"

namespace orivanta::benchmarks {
namespace {

// As in a search: what is put comes later than what was taken, and is not queued yet.
template <class Queue>
void putAndTake(benchmark::State& state) {
  const auto size = static_cast<std::uint32_t>(state.range(0));
  std::mt19937 random(1);
  std::uniform_real_distribution<double> ahead(0.0, 1.0);
  std::vector<double> distances(4096);
  for (double& distance : distances) distance = ahead(random);
  Queue queue;
  std::vector<double> priorities(size + 1);
  for (std::uint32_t element = 0; element < size; ++element)
    queue.put(element, priorities[element] = ahead(random));
  std::uint32_t unused = size;
  double now = 0.0;
  std::size_t step = 0;
  for (auto _ : state) {
    queue.put(unused, priorities[unused] = now + distances[step++ % distances.size()]);
    unused = *queue.next();
    now = priorities[unused];
  }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->Arg(1'000)->Arg(10'000);
}

BENCHMARK(putAndTake<PriorityQueue<std::uint32_t, double>>)
    ->Name("PriorityQueue.put")
    ->Apply(sizes);
BENCHMARK(putAndTake<test::LiteralPriorityQueue<std::uint32_t, double>>)
    ->Name("PriorityQueue.put.list")
    ->Apply(sizes);

}  // namespace
}  // namespace orivanta::benchmarks
