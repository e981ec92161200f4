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

}  // namespace

Building importBuilding(const Options& options, Findings& findings) {
  const auto report = [&](std::string_view stage) {
    if (options.progress) options.progress(stage, 0.0);
  };
  report("reading");
  Building building;
  {
    std::vector<SourceFile> files = readFiles(options.sources, options.limits);
    const Format format = options.format ? *options.format : recognizeFormat(files);
    building = readBuilding(std::move(files), format, options, findings);
  }
  if (!options.fixes.empty())
    for (const SourceFile& file : readFiles({options.fixes}, options.limits))
      applyFixes(building, file.bytes, file.name, findings);
  for (const Stage& stage : stages) {
    report(stage.name);
    stage.run(building, options, findings);
  }
  report("reviewing");
  reviewBuilding(building, findings);
  return building;
}

}  // namespace orivanta::importer
