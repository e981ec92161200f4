#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Stages.hpp"
#include "Apps/Import/Storeys/EachLevel.hpp"
#include "Apps/Import/Storeys/Landings.hpp"
#include "Apps/Import/Storeys/LevelShifts.hpp"
#include "Apps/Import/Storeys/Levels.hpp"
#include "Apps/Import/Storeys/StoreyNames.hpp"

namespace orivanta::importer {

namespace {

constexpr double greatestElevation = 5000.0;

void roundLevels(Building& building) {
  for (Storey& storey : building.storeys) storey.ordinal = roundedLevel(storey.ordinal);
  const auto round = [](double& level, Point) { level = roundedLevel(level); };
  forEachLevel(building, round);
  forEachPointLevel(building, round);
}

// Completes a storey with what another record says about the same ordinal.
void merge(Storey& storey, const Storey& other) {
  if (storey.names.name.empty()) storey.names.name = other.names.name;
  storey.names.byLanguage.insert(other.names.byLanguage.begin(), other.names.byLanguage.end());
  if (storey.shortName.empty()) storey.shortName = other.shortName;
  if (!storey.elevation) storey.elevation = other.elevation;
  storey.outdoor = storey.outdoor && other.outdoor;
  if (storey.building != other.building) storey.building.clear();
  storey.footprint.insert(storey.footprint.end(), other.footprint.begin(), other.footprint.end());
}

std::vector<Storey> mergedStoreys(const std::vector<Storey>& records,
                                  const StoreyOfLevel& storeys) {
  std::map<double, Storey> byOrdinal;
  for (const Storey& record : records) {
    const auto found = storeys.find(record.ordinal);
    if (found == storeys.end() || found->second != record.ordinal) continue;
    const auto [merged, isFirst] = byOrdinal.emplace(record.ordinal, record);
    if (!isFirst) merge(merged->second, record);
  }
  std::vector<Storey> result;
  for (const auto& [ordinal, storey] : storeys) {
    if (storey != ordinal) continue;
    result.push_back(std::move(byOrdinal[ordinal]));
    result.back().ordinal = ordinal;
    result.back().id = "level-" + levelText(ordinal);
  }
  return result;
}

// Elevations of storeys between two stated ones lie between these; others lie one storey height
// per ordinal above or below.
void completeElevations(std::vector<Storey>& storeys, double height) {
  std::map<double, double> stated;
  for (Storey& storey : storeys) {
    if (storey.elevation && !(std::abs(*storey.elevation) <= greatestElevation))
      storey.elevation.reset();
    if (storey.elevation) stated.emplace(storey.ordinal, *storey.elevation);
  }
  for (Storey& storey : storeys) {
    if (storey.elevation) continue;
    const auto above = stated.upper_bound(storey.ordinal);
    if (stated.empty()) {
      storey.elevation = storey.ordinal * height;
    } else if (above == stated.begin()) {
      storey.elevation = above->second - (above->first - storey.ordinal) * height;
    } else {
      const auto below = std::prev(above);
      const double step = above == stated.end()
                              ? height
                              : (above->second - below->second) / (above->first - below->first);
      storey.elevation = below->second + (storey.ordinal - below->first) * step;
    }
  }
}

// Reports that there is nothing that people walk on or enter, as in a drawing of walls.
void reportIfEmpty(const Building& building, Findings& findings) {
  const bool hasAreas =
      std::any_of(building.areas.begin(), building.areas.end(), [](const Area& area) {
        return area.kind == AreaKind::room || area.kind == AreaKind::walkway ||
               area.kind == AreaKind::unknown;
      });
  const bool hasPaths = !building.sourceNodes.empty() ||
                        std::any_of(building.lines.begin(), building.lines.end(),
                                    [](const Line& line) { return line.kind == LineKind::path; });
  if (hasAreas || hasPaths) return;
  const auto walls = std::count_if(building.lines.begin(), building.lines.end(),
                                   [](const Line& line) { return line.kind == LineKind::wall; });
  findings.add(makeFinding(
      Severity::warning, "rooms-missing", "",
      {walls > 0 ? fmt::format("The source draws {} walls, but no rooms or corridors.", walls)
                 : "The source draws no rooms or corridors.",
       "There is nothing to search for, and nowhere to walk.",
       "Draw the rooms and corridors as areas, even where walls surround them."}));
}

}  // namespace

void arrangeStoreys(Building& building, const Options& options, Findings& findings) {
  roundLevels(building);
  reportIfEmpty(building, findings);
  shiftLevels(building, options, findings);
  reportShiftedStoreys(building, findings);
  const StoreyOfLevel storeys = storeysOfLevels(building);
  building.storeys = mergedStoreys(building.storeys, storeys);
  moveToStoreys(building, storeys, findings);
  completeElevations(building.storeys, options.storeyHeight);
  for (Storey& storey : building.storeys) nameStorey(storey, building.language, options.languages);
}

}  // namespace orivanta::importer
