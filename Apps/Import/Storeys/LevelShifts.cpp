#include "Apps/Import/Storeys/LevelShifts.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "Apps/Import/Storeys/EachLevel.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

constexpr double margin = 1.0;  // meters

bool isWithin(const std::vector<Polygon>& footprint, Point point) {
  return std::any_of(footprint.begin(), footprint.end(), [&](const Polygon& polygon) {
    if (polygon.outer.size() < 3) return false;
    return package::contains(polygon.outer, point) ||
           package::distanceToBorder(polygon.outer, point) <= margin;
  });
}

std::set<std::string> buildingsOf(const Building& building) {
  std::set<std::string> names;
  for (const Storey& storey : building.storeys)
    if (!storey.building.empty()) names.insert(storey.building);
  return names;
}

std::string listed(const std::set<std::string>& names) {
  std::string list;
  for (const std::string& name : names)
    list += fmt::format("{}\"{}\"", list.empty() ? "" : ", ", name);
  return list;
}

void reportUnknown(const std::string& name, const std::set<std::string>& known,
                   Findings& findings) {
  Finding finding;
  finding.rule = "level-shift-unknown";
  finding.field = "--level-shift";
  finding.message = fmt::format("The source has no building \"{}\".", name);
  finding.effect = "No level is shifted for it.";
  finding.advice = known.empty()
                       ? "The source names no buildings of its storeys; leave out the option."
                       : fmt::format("The buildings are {}.", listed(known));
  findings.add(std::move(finding));
}

// The ordinals of the storeys of each building, by their short names.
using Signs = std::map<std::string, std::map<std::string, double>>;

void reportPair(const Signs::value_type& first, const Signs::value_type& second,
                Findings& findings) {
  std::string differing;
  std::set<double> shifts;
  for (const auto& [sign, ordinal] : first.second) {
    const auto same = second.second.find(sign);
    if (same == second.second.end()) continue;
    shifts.insert(roundedLevel(ordinal - same->second));
    differing += fmt::format("{}\"{}\" is {} and {}", differing.empty() ? "" : ", ", sign,
                             levelText(ordinal), levelText(same->second));
  }
  // Where some short names agree, the others are mistakes of single storeys.
  if (shifts.empty() || shifts.contains(0.0)) return;
  Finding finding;
  finding.rule = "storeys-shifted";
  finding.source = second.first;
  finding.field = "level";
  finding.message = fmt::format(
      "The buildings \"{}\" and \"{}\" have storeys of the same short names on different levels: "
      "{}.",
      first.first, second.first, differing);
  finding.effect = "Storeys that belong together are on different maps.";
  finding.advice = shifts.size() == 1
                       ? fmt::format("If they lie at the same height, use --level-shift \"{}={}\".",
                                     second.first, levelText(*shifts.begin()))
                       : "Correct the levels of one of the buildings in the source.";
  findings.add(std::move(finding));
}

}  // namespace

void shiftLevels(Building& building, const Options& options, Findings& findings) {
  const std::set<std::string> known = buildingsOf(building);
  // Everything is shifted once, by the first building that it lies in.
  std::map<std::string, std::vector<Polygon>> footprints;
  for (Storey& storey : building.storeys) {
    const auto shift = options.levelShifts.find(storey.building);
    if (shift == options.levelShifts.end()) continue;
    storey.ordinal = roundedLevel(storey.ordinal + shift->second);
    std::vector<Polygon>& all = footprints[storey.building];
    all.insert(all.end(), storey.footprint.begin(), storey.footprint.end());
  }
  for (const auto& [name, shift] : options.levelShifts)
    if (!known.contains(name)) reportUnknown(name, known, findings);
  if (footprints.empty()) return;
  const auto shift = [&](double& level, Point position) {
    for (const auto& [name, footprint] : footprints) {
      if (!isWithin(footprint, position)) continue;
      level = roundedLevel(level + options.levelShifts.at(name));
      return;
    }
  };
  forEachLevel(building, shift);
  forEachPointLevel(building, shift);
}

void reportShiftedStoreys(const Building& building, Findings& findings) {
  Signs signs;
  for (const Storey& storey : building.storeys)
    if (!storey.building.empty() && !storey.shortName.empty())
      signs[storey.building].emplace(storey.shortName, storey.ordinal);
  constexpr int mostCompared = 100;  // of each building with others
  for (auto first = signs.begin(); first != signs.end(); ++first) {
    int compared = 0;
    for (auto second = std::next(first); second != signs.end() && compared < mostCompared;
         ++second, ++compared)
      reportPair(*first, *second, findings);
  }
}

}  // namespace orivanta::importer
