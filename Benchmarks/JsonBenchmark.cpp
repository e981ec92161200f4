// Parses JSON to `RawData`, compared with Boost.JSON: with its default memory, and with all memory
// from one block, which is the lower bound for a parser that builds its values. The counter
// "resident" is the resident memory of the document as a multiple of the JSON's size.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <fstream>
#include <map>

#include "Benchmarks/MallJson.hpp"
#include "Source/RawData.hpp"

namespace orivanta::benchmarks {
namespace {

// One page of nodes, or a collection of 100,000 nodes.
const std::string& nodesJson(const benchmark::State& state) {
  static std::map<std::int64_t, std::string> texts;
  std::string& text = texts[state.range(0)];
  if (text.empty()) text = mallJson(static_cast<std::size_t>(state.range(0))).at("node");
  return text;
}

double residentBytes() {
  std::ifstream statm("/proc/self/statm");
  double total = 0.0;
  double resident = 0.0;
  statm >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

template <class Parse>
void parseAgain(benchmark::State& state, const Parse& parse) {
  const std::string& text = nodesJson(state);
  for (auto _ : state) benchmark::DoNotOptimize(parse(text));
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void withLibrary(benchmark::State& state) {
  const std::string& text = nodesJson(state);
  {
    const double before = residentBytes();
    const auto document = RawData::parse(text);
    state.counters["resident"] = (residentBytes() - before) / static_cast<double>(text.size());
  }
  parseAgain(state, [](const std::string& json) { return RawData::parse(json).has_value(); });
}

void withBoost(benchmark::State& state) {
  parseAgain(state, [](const std::string& json) { return boost::json::parse(json).is_array(); });
}

void withBoostInOneBlock(benchmark::State& state) {
  parseAgain(state, [](const std::string& json) {
    boost::json::monotonic_resource memory(json.size());
    return boost::json::parse(json, &memory).is_array();
  });
}

BENCHMARK(withLibrary)->Name("Json")->Arg(500)->Arg(100'000);
BENCHMARK(withBoost)->Name("Json.boost")->Arg(500)->Arg(100'000);
BENCHMARK(withBoostInOneBlock)->Name("Json.boostInOneBlock")->Arg(500)->Arg(100'000);

}  // namespace
}  // namespace orivanta::benchmarks
