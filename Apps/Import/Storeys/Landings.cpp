#include "Apps/Import/Storeys/Landings.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "Apps/Import/Storeys/EachLevel.hpp"
#include "Apps/Import/Storeys/Levels.hpp"

namespace orivanta::importer {

namespace {

struct Content {
  bool isEntered = false;  // rooms or walkways
  bool isUsed = false;     // something else that deserves a map if the ordinal is whole
};

bool isWhole(double ordinal) { return ordinal == std::round(ordinal); }

std::map<double, Content> contentsOf(Building& building) {
  std::map<double, Content> contents;
  forEachLevel(building, [&](double& level, Point) { contents[level]; });
  for (const Storey& storey : building.storeys) {
    Content& content = contents[storey.ordinal];
    content.isUsed |= !storey.shortName.empty() || !storey.names.name.empty() ||
                      !storey.names.byLanguage.empty() || storey.elevation;
  }
  for (const Area& area : building.areas) {
    Content& content = contents[area.level];
    content.isEntered |= area.kind == AreaKind::room || area.kind == AreaKind::walkway;
    content.isUsed |= area.kind == AreaKind::unknown;
  }
  for (const Line& line : building.lines)
    if (line.kind == LineKind::path && line.levels.size() == 1)
      contents[line.levels.front()].isUsed = true;
  for (const Place& place : building.places)
    for (const Spot& spot : place.spots) contents[spot.level].isUsed = true;
  for (const SourceNode& node : building.sourceNodes) contents[node.spot.level].isUsed = true;
  return contents;
}

double nearestOf(const std::set<double>& storeys, double level) {
  return *std::min_element(storeys.begin(), storeys.end(), [&](double first, double second) {
    return std::abs(first - level) < std::abs(second - level);
  });
}

void reportLanding(double level, std::optional<double> storey, Findings& findings) {
  Finding finding;
  finding.severity = storey ? Severity::info : Severity::warning;
  finding.rule = storey ? "level-landing" : "level-empty";
  finding.field = "level";
  finding.level = storey.value_or(level);
  finding.message = fmt::format("Level {} has no rooms and no walkways.", levelText(level));
  if (storey) {
    finding.effect = fmt::format("What is drawn there belongs to level {}.", levelText(*storey));
  } else {
    finding.effect = "The level is left out, with the doors, stairs and elevators that lead to it.";
    finding.advice = "Draw a room or a corridor on it if people go there.";
  }
  findings.add(std::move(finding));
}

// Erases elements for which `keep` is false. It may change the elements.
template <class Element, class Keep>
void keepIf(std::vector<Element>& elements, const Keep& keep) {
  elements.erase(std::remove_if(elements.begin(), elements.end(),
                                [&](Element& element) { return !keep(element); }),
                 elements.end());
}

// Replaces identifiers; those without a replacement are erased.
void replaceIds(std::vector<std::string>& ids,
                const std::map<std::string, std::string>& replacements) {
  std::set<std::string> seen;
  keepIf(ids, [&](std::string& id) {
    if (const auto found = replacements.find(id); found != replacements.end()) id = found->second;
    return !id.empty() && seen.insert(id).second;
  });
}

class Move {
 public:
  Move(Building& building, const StoreyOfLevel& storeys) : building_(building), storeys_(storeys) {}

  void run() {
    moveAreas();
    moveDoors();
    for (Line& line : building_.lines) moveLine(line);
    keepIf(building_.lines, [](const Line& line) { return !line.levels.empty(); });
    for (Place& place : building_.places) moveSpots(place.spots);
    for (ConnectorHint& hint : building_.connectorHints) moveSpots(hint.spots);
    for (SourceNode& node : building_.sourceNodes) move(node.spot.level);
    keepReferences();
  }

 private:
  // Returns false if the level belongs nowhere.
  bool move(double& level) const {
    const auto found = storeys_.find(level);
    if (found == storeys_.end() || !found->second) return false;
    level = *found->second;
    return true;
  }

  // Moves the elements, those that stay on their level first, and keeps one of those that
  // `sameOf` cannot tell apart.
  template <class Element, class SameOf>
  void moveAll(std::vector<Element>& elements, std::map<std::string, std::string>& replacements,
               const SameOf& sameOf) {
    std::map<decltype(sameOf(elements.front())), std::string> kept;
    for (const Element& element : elements) {
      const auto found = storeys_.find(element.level);
      if (found->second == element.level) kept.emplace(sameOf(element), element.id);
    }
    keepIf(elements, [&](Element& element) {
      if (!move(element.level)) {
        replacements[element.id];
        return false;
      }
      const auto& [same, first] = *kept.emplace(sameOf(element), element.id).first;
      if (first == element.id) return true;
      replacements[element.id] = first;
      return false;
    });
  }

  void moveAreas() {
    moveAll(building_.areas, areas_, [](const Area& area) {
      return std::tuple(area.source, area.level, isConnector(area.kind) ? std::string() : area.id);
    });
  }

  void moveDoors() {
    moveAll(building_.doors, doors_, [](const Door& door) {
      return std::tuple(door.source, door.level, door.position.x, door.position.y);
    });
  }

  void moveLine(Line& line) const {
    keepIf(line.levels, [&](double& level) { return move(level); });
    std::sort(line.levels.begin(), line.levels.end());
    line.levels.erase(std::unique(line.levels.begin(), line.levels.end()), line.levels.end());
    for (double& level : line.pointLevels)
      if (!move(level) && !line.levels.empty())
        level = nearestOf({line.levels.begin(), line.levels.end()}, level);
  }

  void moveSpots(std::vector<Spot>& spots) const {
    std::set<std::tuple<double, double, double>> seen;
    keepIf(spots, [&](Spot& spot) {
      return move(spot.level) && seen.emplace(spot.level, spot.position.x, spot.position.y).second;
    });
  }

  void keepReferences() {
    for (Place& place : building_.places) replaceIds(place.areas, areas_);
    for (Door& door : building_.doors) replaceIds(door.areas, areas_);
    for (ConnectorHint& hint : building_.connectorHints) {
      replaceIds(hint.areas, areas_);
      replaceIds(hint.doors, doors_);
    }
  }

  Building& building_;
  const StoreyOfLevel& storeys_;
  std::map<std::string, std::string> areas_;  // those that are gone, and what stands for them
  std::map<std::string, std::string> doors_;
};

}  // namespace

StoreyOfLevel storeysOfLevels(Building& building) {
  const std::map<double, Content> contents = contentsOf(building);
  std::set<double> storeys;
  for (const auto& [ordinal, content] : contents)
    if (content.isEntered || (content.isUsed && isWhole(ordinal))) storeys.insert(ordinal);
  if (storeys.empty())
    for (const auto& [ordinal, content] : contents)
      if (isWhole(ordinal)) storeys.insert(ordinal);
  StoreyOfLevel result;
  for (const auto& [ordinal, content] : contents) {
    if (storeys.contains(ordinal))
      result[ordinal] = ordinal;
    else if (isWhole(ordinal) || storeys.empty())
      result[ordinal] = std::nullopt;
    else
      result[ordinal] = nearestOf(storeys, ordinal);
  }
  return result;
}

void moveToStoreys(Building& building, const StoreyOfLevel& storeys, Findings& findings) {
  for (const auto& [level, storey] : storeys)
    if (storey != level) reportLanding(level, storey, findings);
  Move(building, storeys).run();
}

}  // namespace orivanta::importer
