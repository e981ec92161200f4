// Compares the walking network that the importer derives from the drawn areas of a building with a
// surveyed one.
//
//   orivanta_compare_networks [--source] [--draw FOLDER] PACKAGE SOURCE...
//
// PACKAGE is a venue package of the same building whose network was surveyed; "-" if there is none.
// With --source, the source's own network is compared instead of a derived one. Prints one line per
// figure: doors joined, pairs of rooms with a way, the ratio of the lengths, lines through walls,
// edges, connectors found, time and memory.
#include <fmt/format.h>
#include <sys/resource.h>

#include <chrono>
#include <filesystem>

#include "Apps/Import/Import.hpp"
#include "Apps/Import/Write/FloorPlan.hpp"
#include "Apps/Package/TextFile.hpp"
#include "Benchmarks/NetworkFigures.hpp"

namespace orivanta::benchmarks {

namespace {

int compare(const std::vector<std::string>& arguments) {
  importer::Options options;
  options.network = importer::NetworkChoice::derive;
  std::filesystem::path drawings;
  std::vector<std::string> paths;
  bool list = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--source")
      options.network = importer::NetworkChoice::automatic;
    else if (arguments[i] == "--list")
      list = true;
    else if (arguments[i] == "--draw" && i + 1 < arguments.size())
      drawings = arguments[++i];
    else
      paths.push_back(arguments[i]);
  }
  if (paths.size() < 2) {
    fmt::print(stderr,
               "usage: orivanta_compare_networks [--source] [--list] [--draw FOLDER] PACKAGE|- "
               "SOURCE...\n");
    return 2;
  }
  options.sources.assign(paths.begin() + 1, paths.end());
  std::string stage;
  auto began = std::chrono::steady_clock::now();
  const auto finish = [&] {
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - began;
    if (!stage.empty()) fmt::print("  {:<34} {:.2f} s\n", stage, took.count());
    began = std::chrono::steady_clock::now();
  };
  options.progress = [&](std::string_view name, double) {
    if (name == stage) return;
    finish();
    stage = name;
  };
  importer::Findings findings;
  const importer::Building building = importer::importBuilding(options, findings);
  finish();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  fmt::print("processor time     {:.2f} s, {} MiB\n",
             static_cast<double>(usage.ru_utime.tv_sec) +
                 1e-6 * static_cast<double>(usage.ru_utime.tv_usec),
             usage.ru_maxrss / 1024);
  if (!drawings.empty())
    for (const importer::Storey& storey : building.storeys)
      package::writeFile(drawings / fmt::format("{:g}.svg", storey.ordinal),
                         importer::floorPlanSvg(building, storey.ordinal,
                                                {.names = true, .network = true, .marks = {}}));
  fmt::print("storeys            {}, areas {}, nodes {}, edges {}\n", building.storeys.size(),
             building.areas.size(), building.network.nodes.size(), building.network.edges.size());
  countDoors(building);
  countReachableRooms(building, list);
  countLinesThroughWalls(building);
  countDetours(building, list);
  if (paths[0] == "-") return 0;
  const SurveyedPackage survey = readSurveyedPackage(paths[0]);
  fmt::print("edges              {:.2f} times (surveyed + doors)\n",
             static_cast<double>(building.network.edges.size()) /
                 static_cast<double>(survey.network.edges + building.doors.size()));
  compareLengths(building, survey, list);
  if (options.network != importer::NetworkChoice::derive)
    for (const bool bends : {true, false})
      compareSharedNodes(plainNetwork(building.network), survey, bends);
  compareConnectors(building, survey, list);
  return 0;
}

}  // namespace

}  // namespace orivanta::benchmarks

int main(int count, char** arguments) {
  try {
    return orivanta::benchmarks::compare({arguments + 1, arguments + count});
  } catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 1;
  }
}
