#include "Apps/Import/Import.hpp"

#include <array>
#include <string_view>
#include <utility>

#include "Apps/Import/Fixes/Fixes.hpp"
#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

struct Stage {
  std::string_view name;
  void (*run)(Building&, const Options&, Findings&);
};

constexpr std::array stages = {
    Stage{"repairing shapes", repairShapes},    Stage{"arranging storeys", arrangeStoreys},
    Stage{"arranging places", arrangePlaces},   Stage{"joining doors", joinDoors},
    Stage{"making connectors", makeConnectors}, Stage{"making the walking network", makeNetwork},
    Stage{"joining storeys", joinStoreys},
};

// Adds a person's text to what the source says about itself, which must stay.
void credit(const std::string& given, std::string& text) {
  if (text.find(given) != std::string::npos) return;  // also if nothing is given
  text += (text.empty() ? "" : "; ") + given;
}

}  // namespace

void runStages(Building& building, const Options& options, Findings& findings) {
  for (const Stage& stage : stages) {
    if (options.progress) options.progress(stage.name, 0.0);
    stage.run(building, options, findings);
  }
}

Building importBuilding(const Options& options, Findings& findings) {
  if (options.progress) options.progress("reading", 0.0);
  Building building;
  {
    std::vector<SourceFile> files = readFiles(options.sources, options.limits);
    const Format format = options.format ? *options.format : recognizeFormat(files);
    building = readBuilding(std::move(files), format, options, findings);
  }
  credit(options.attribution, building.attribution);
  credit(options.license, building.license);
  Fixes fixes = options.fixes.empty() ? Fixes() : Fixes::read(options.fixes);
  fixes.apply(building, findings);
  runStages(building, options, findings);
  fixes.nameConnectors(building, findings);
  if (options.progress) options.progress("reviewing", 0.0);
  reviewBuilding(building, findings);
  return building;
}

}  // namespace orivanta::importer
