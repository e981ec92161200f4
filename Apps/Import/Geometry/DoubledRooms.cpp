#include "Apps/Import/Geometry/DoubledRooms.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>

#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Overlap.hpp"
#include "Apps/Import/MakeFinding.hpp"

namespace orivanta::importer {

namespace {

constexpr double mostly = 0.9;

bool areAlike(const Area& first, const Area& second) {
  const double one = areaOf(first.shape);
  const double other = areaOf(second.shape);
  const double least = mostly * std::max(one, other);
  return std::min(one, other) >= least && overlapExceeds(first.shape, second.shape, least);
}

// An earlier room with the same outline, or null. Looks at a few only: of a heap of equal rooms,
// the first one is found soon.
const Area* doubleOf(const Area& room, const AreaIndex& rooms) {
  constexpr int mostTried = 20;
  int tried = 0;
  for (const Area* other : rooms.near(room.shape, 0.0)) {
    if (other == &room || ++tried > mostTried) return nullptr;
    if (areAlike(*other, room)) return other;
  }
  return nullptr;
}

}  // namespace

void reportDoubledRooms(const Building& building, Findings& findings) {
  std::map<std::string, std::string> names;
  for (const Place& place : building.places) names.emplace(place.id, place.names.name);
  const auto title = [&](const Area& area) {
    const auto name = names.find(area.place);
    return name == names.end() || name->second.empty()
               ? area.source
               : fmt::format("{} (\"{}\")", area.source, name->second);
  };
  const auto isRoom = [](const Area& area) { return area.kind == AreaKind::room; };
  std::set<double> levels;
  for (const Area& area : building.areas) levels.insert(area.level);
  for (const double level : levels) {
    const AreaIndex rooms(building, level, isRoom);
    for (const Area& area : building.areas) {
      if (area.level != level || !isRoom(area) || area.shape.empty()) continue;
      if (const Area* other = doubleOf(area, rooms))
        findings.add(makeFinding(
            Severity::warning, "room-doubled", area.source,
            {level, area.shape.front().outer.front()},
            {.message = fmt::format("The room {} has almost the same outline as the room {}.",
                                    title(area), title(*other)),
             .effect = "Both are drawn, one over the other, and only one of them can be tapped.",
             .advice = "Delete one of them, or draw them side by side."}));
    }
  }
}

}  // namespace orivanta::importer
