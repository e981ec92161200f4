// Measures one `put` into a queue with N elements.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include "Source/Node.hpp"
#include "Source/Routing/PriorityQueue.hpp"
#include "Tests/Support/LiteralPriorityQueue.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::benchmarks {
namespace {

using Clock = std::chrono::steady_clock;

// Alternates rounds of puts, which are timed, with as many takes, which are not, so that the size
// stays the same. As in a search, priorities of new elements follow those already taken, and most
// are not queued yet: one put in eight is for an element that is.
template <class Queue>
void put(benchmark::State& state) {
  const auto size = static_cast<std::uint32_t>(state.range(0));
  const std::uint32_t round = size / 10;
  std::mt19937 random(1);
  std::uniform_real_distribution<double> ahead(0.0, 1.0);
  // Elements are reused long after they were taken.
  NodeList nodes(2 * size);
  for (auto& node : nodes) node = test::makeNode(0.0, 0.0);
  std::shuffle(nodes.begin(), nodes.end(), random);
  Queue queue;
  for (std::uint32_t element = 0; element < size; ++element)
    queue.put(nodes[element], ahead(random));
  std::uint32_t next = size;
  double now = 0.0;
  std::vector<std::pair<std::shared_ptr<Node>, double>> puts(round);
  for (auto _ : state) {
    now += 1.0 / 10;
    for (auto& [element, priority] : puts) {
      const bool isQueued = random() % 8 == 0;
      element = nodes[(isQueued ? next - 1 : next++) % nodes.size()];
      priority = isQueued ? now : now + ahead(random);
    }
    const auto start = Clock::now();
    for (const auto& [element, priority] : puts) queue.put(element, priority);
    const std::chrono::duration<double> taken = Clock::now() - start;
    state.SetIterationTime(taken.count());
    while (queue.size() > size) queue.next();
  }
  state.SetItemsProcessed(state.iterations() * round);
}

void sizes(benchmark::internal::Benchmark* benchmark) { benchmark->Arg(1'000)->Arg(10'000); }

BENCHMARK(put<PriorityQueue<std::shared_ptr<Node>, double>>)
    ->Name("PriorityQueue.put")
    ->Apply(sizes);
BENCHMARK(put<test::LiteralPriorityQueue<std::shared_ptr<Node>, double>>)
    ->Name("PriorityQueue.put.list")
    ->Apply(sizes);

}  // namespace
}  // namespace orivanta::benchmarks
