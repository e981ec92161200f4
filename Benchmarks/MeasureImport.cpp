// Measures how time and memory of an import grow with the source, and compares them with parsing
// it.
//
//   orivanta_measure_import FOLDER [import|derive]
//
// FOLDER contains the GeoJSON files of a station network. It is imported as it is, and repeated 4
// and 16 times. Each step runs in a process of its own, which tells its processor time and its peak
// memory. Prints a line for each size and the ratios with their limits, and exits with 1 if one is
// missed. With "derive", the walking network is derived instead of taken from the source.
#include <fmt/format.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <boost/json/parse.hpp>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Apps/Import/Import.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Write/WritePackage.hpp"
#include "Benchmarks/RepeatedSource.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace orivanta::benchmarks {

namespace {

namespace fs = std::filesystem;

constexpr double mostMemory = 512.0;  // MiB, for the source as it is
constexpr double mostTimesParsing = 20.0;

struct Cost {
  double seconds = 0.0;  // of the processor
  double memory = 0.0;   // MiB, at most at any time
};

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

Cost costOf(const std::function<void()>& work) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    try {
      work();
    } catch (const std::exception& error) {
      fmt::print(stderr, "{}\n", error.what());
      std::_Exit(1);
    }
    std::_Exit(0);
  }
  int status = 0;
  rusage usage{};
  if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
    throw std::runtime_error("a measured process has failed");
  return {secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024.0};
}

// The cheapest of several runs.
Cost leastCostOf(int runs, const std::function<void()>& work) {
  Cost least = costOf(work);
  for (int run = 1; run < runs; ++run)
    if (const Cost cost = costOf(work); cost.seconds < least.seconds) least = cost;
  return least;
}

struct Size {
  double positions = 0.0;
  Cost parsing;    // reading the files and parsing their JSON
  Cost reading;    // to a building
  Cost importing;  // to a package
};

Size measure(const fs::path& folder, std::size_t copies, importer::NetworkChoice network) {
  const test::TemporaryFolder temporary;
  const fs::path source = temporary.path() / "source";
  Size size;
  // Not in this process, whose memory the measured ones inherit.
  costOf([&] {
    const std::size_t positions = repeatSource(folder, copies, source);
    temporary.write("positions", std::to_string(positions));
  });
  size.positions = std::stod(importer::readFiles({temporary.path() / "positions"}, {})[0].bytes);
  importer::Options options;
  options.sources = {source};
  options.network = network;
  options.limits.extentMeters *= static_cast<double>(copies);
  constexpr int runs = 3;
  size.parsing = leastCostOf(runs, [&] {
    for (const importer::SourceFile& file : importer::readFiles(options.sources, options.limits))
      boost::json::parse(file.bytes);
  });
  size.reading = leastCostOf(runs, [&] {
    importer::Findings findings;
    importer::readStations(importer::readFiles(options.sources, options.limits), options, findings);
  });
  size.importing = leastCostOf(runs, [&] {
    importer::Findings findings;
    importer::writePackage(importer::importBuilding(options, findings),
                           temporary.path() / "package");
    fs::remove_all(temporary.path() / "package");
  });
  fmt::print(
      "{:>2} times {:>9.0f} positions: parsing {:.2f} s, reading {:.2f} s {:.0f} MiB, "
      "importing {:.2f} s {:.0f} MiB\n",
      copies, size.positions, size.parsing.seconds, size.reading.seconds, size.reading.memory,
      size.importing.seconds, size.importing.memory);
  return size;
}

bool check(const std::string& what, double value, double limit) {
  fmt::print("{:<44} {:>8.2f}  at most {:>7.2f}  {}\n", what, value, limit,
             value <= limit ? "ok" : "MISSED");
  return value <= limit;
}

int run(const fs::path& folder, importer::NetworkChoice network) {
  const Size one = measure(folder, 1, network);
  bool good = true;
  for (const std::size_t copies : {4, 16}) {
    const Size more = measure(folder, copies, network);
    const double growth =
        more.positions / one.positions * std::log(more.positions) / std::log(one.positions);
    good &= check(fmt::format("time of {} : 1", copies),
                  more.importing.seconds / one.importing.seconds, growth);
    good &= check(fmt::format("memory of {} : 1", copies),
                  more.importing.memory / one.importing.memory, growth);
    good &= check(fmt::format("importing : parsing, {} times", copies),
                  more.importing.seconds / more.parsing.seconds, mostTimesParsing);
  }
  good &=
      check("importing : parsing", one.importing.seconds / one.parsing.seconds, mostTimesParsing);
  good &= check("memory, MiB", one.importing.memory, mostMemory);
  return good ? 0 : 1;
}

}  // namespace

}  // namespace orivanta::benchmarks

int main(int count, char** arguments) {
  const std::string how = count == 3 ? arguments[2] : "import";
  if (count < 2 || count > 3 || (how != "import" && how != "derive")) {
    fmt::print(stderr, "usage: orivanta_measure_import FOLDER [import|derive]\n");
    return 2;
  }
  try {
    return orivanta::benchmarks::run(
        arguments[1], how == "derive" ? orivanta::importer::NetworkChoice::derive
                                      : orivanta::importer::NetworkChoice::automatic);
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
