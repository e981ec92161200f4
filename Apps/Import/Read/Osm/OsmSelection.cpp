#include "Apps/Import/Read/Osm/OsmSelection.hpp"

#include <fmt/core.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "Apps/Import/MakeFinding.hpp"
#include "Apps/Import/Read/Osm/OsmMeaning.hpp"
#include "Apps/Import/Read/Osm/OsmValues.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

// Keeps hostile extracts from taking more than a few seconds.
constexpr std::size_t mostTests = 50'000'000;

// A position that stands for the thing: on a line, one of its points.
OsmPosition positionOf(const OsmThing& thing) {
  if (thing.isArea()) return thing.box.middle();
  return thing.points[thing.points.size() / 2];
}

double sizeOf(const OsmBox& box) {
  return (static_cast<double>(box.high.longitude) - box.low.longitude) *
         (static_cast<double>(box.high.latitude) - box.low.latitude);
}

// Positions of things in the columns of a grid, and from south to north within each.
class ByColumn {
 public:
  explicit ByColumn(const std::vector<OsmThing>& things) {
    for (std::size_t i = 0; i < things.size(); ++i)
      if (!isBuilding(*things[i].tags)) entries_.push_back({positionOf(things[i]), i});
    std::sort(entries_.begin(), entries_.end(), [](const Entry& first, const Entry& second) {
      return std::tuple(columnOf(first.position), first.position.latitude, first.thing) <
             std::tuple(columnOf(second.position), second.position.latitude, second.thing);
    });
  }

  // Calls `use(index)` for the things whose position lies in the area.
  template <class Use>
  void forEachIn(const OsmThing& area, const Use& use) {
    const OsmBox& box = area.box;
    auto at = entries_.begin();
    for (std::int32_t column = columnOf(box.low); column <= columnOf(box.high); ++column) {
      at = std::lower_bound(at, entries_.end(), std::pair(column, box.low.latitude),
                            [](const Entry& entry, const auto& start) {
                              return std::pair(columnOf(entry.position), entry.position.latitude) <
                                     start;
                            });
      for (; at != entries_.end() && columnOf(at->position) == column &&
             at->position.latitude <= box.high.latitude;
           ++at) {
        if (!spend(sizeOf(area))) return;
        if (contains(area, at->position)) use(at->thing);
      }
      if (at == entries_.end() || !spend(1)) return;
      column = std::max(column, columnOf(at->position) - 1);  // skips empty columns
    }
  }

  // Whether there was too much to look at.
  bool isExhausted() const { return isExhausted_; }

 private:
  struct Entry {
    OsmPosition position;
    std::size_t thing = 0;
  };

  static std::int32_t columnOf(OsmPosition position) {
    constexpr std::int32_t width = 5000;  // about 50 meters
    return static_cast<std::int32_t>(std::floor(static_cast<double>(position.longitude) / width));
  }

  static std::size_t sizeOf(const OsmThing& area) {
    std::size_t corners = 0;
    for (const OsmPolygon& polygon : area.polygons) corners += polygon.outer.size();
    return 1 + corners / 8;
  }

  bool spend(std::size_t tests) {
    isExhausted_ = isExhausted_ || tests > testsLeft_;
    if (!isExhausted_) testsLeft_ -= tests;
    return !isExhausted_;
  }

  std::vector<Entry> entries_;
  std::size_t testsLeft_ = mostTests;
  bool isExhausted_ = false;
};

void reportExhausted(const ByColumn& positions, const std::string& file, Findings& findings) {
  if (!positions.isExhausted()) return;
  Finding finding =
      makeFinding(Severity::warning, "selection-incomplete", "",
                  {"There are too many things in buildings, or too many buildings in each other.",
                   "Some things may be taken as outdoors.",
                   "Cut out the building first, for example with \"osmium extract\"."});
  finding.file = file;
  findings.add(std::move(finding));
}

std::set<OsmPosition> cornersOf(const OsmThing& area) {
  std::set<OsmPosition> corners;
  for (const OsmPolygon& polygon : area.polygons)
    corners.insert(polygon.outer.begin(), polygon.outer.end());
  return corners;
}

bool isCalled(const OsmThing& thing, const std::string& name) {
  if (thing.id == name || thing.tags->is("ref", name)) return true;
  for (const auto& [key, value] : *thing.tags)
    if ((key == "name" || key.starts_with("name:")) && value == name) return true;
  return false;
}

std::string namesOfBuildings(std::vector<OsmThing>& things, const std::string& file,
                             Findings& findings) {
  std::set<std::string> names;
  for (const std::size_t building : assignBuildings(things, file, findings)) {
    const std::string name = namesOf(*things[building].tags).name;
    names.insert(name.empty() ? things[building].id : name);
  }
  std::string list;
  for (const std::string& name : names) {
    if (list.size() > 500) return list + " and others";
    list += fmt::format("{}\"{}\"", list.empty() ? "" : ", ", name);
  }
  return list;
}

// The named area with most things in it; a building rather than another area.
const OsmThing* findNamed(const std::vector<OsmThing>& things, const std::string& name,
                          const std::string& file, Findings& findings) {
  ByColumn positions(things);
  const OsmThing* best = nullptr;
  std::pair<bool, std::size_t> bestRank;
  for (const OsmThing& thing : things) {
    if (!thing.isArea() || !isCalled(thing, name)) continue;
    std::pair<bool, std::size_t> rank{isBuilding(*thing.tags), 0};
    positions.forEachIn(thing, [&](std::size_t) { ++rank.second; });
    if (rank.second == 0 || (best != nullptr && rank <= bestRank)) continue;
    best = &thing;
    bestRank = rank;
  }
  reportExhausted(positions, file, findings);
  return best;
}

template <class Keep>
void keepIf(std::vector<OsmThing>& things, const Keep& keep) {
  things.erase(std::remove_if(things.begin(), things.end(),
                              [&](const OsmThing& thing) { return !keep(thing); }),
               things.end());
}

}  // namespace

void keepWithin(std::vector<OsmThing>& things, const Bounds& bounds) {
  const auto [south, west, north, east] = bounds;
  OsmBox box;
  OsmPosition corner;
  if (toOsmPosition(west, south, corner)) box.low = corner;
  if (toOsmPosition(east, north, corner)) box.high = corner;
  keepIf(things, [&](const OsmThing& thing) {
    return box.contains(positionOf(thing)) || (isBuilding(*thing.tags) && thing.box.meets(box));
  });
}

std::vector<std::size_t> assignBuildings(std::vector<OsmThing>& things, const std::string& file,
                                         Findings& findings) {
  std::vector<std::size_t> candidates;
  for (std::size_t i = 0; i < things.size(); ++i)
    if (things[i].isArea() && isBuilding(*things[i].tags)) candidates.push_back(i);
  std::stable_sort(candidates.begin(), candidates.end(),
                   [&](std::size_t first, std::size_t second) {
                     return sizeOf(things[first].box) > sizeOf(things[second].box);
                   });
  ByColumn positions(things);
  std::vector<std::size_t> buildings;
  for (const std::size_t candidate : candidates) {
    std::vector<std::size_t> inside;
    bool isUsed = false;
    positions.forEachIn(things[candidate], [&](std::size_t thing) {
      inside.push_back(thing);
      isUsed |= things[thing].isArea() && isIndoors(*things[thing].tags);
    });
    if (!isUsed) continue;
    buildings.push_back(candidate);
    for (const std::size_t thing : inside) things[thing].building = buildings.size();
  }
  reportExhausted(positions, file, findings);
  // Doors on the outline.
  std::map<OsmPosition, std::size_t> corners;
  for (std::size_t i = 0; i < buildings.size(); ++i)
    for (const OsmPosition corner : cornersOf(things[buildings[i]])) corners.emplace(corner, i + 1);
  for (OsmThing& thing : things) {
    if (!thing.isNode() || thing.building != 0) continue;
    const auto found = corners.find(thing.points[0]);
    if (found != corners.end()) thing.building = found->second;
  }
  return buildings;
}

void keepBuilding(std::vector<OsmThing>& things, const std::string& name, const std::string& file,
                  Findings& findings) {
  const OsmThing* found = findNamed(things, name, file, findings);
  if (found == nullptr) {
    const std::string names = namesOfBuildings(things, file, findings);
    throw SourceError(
        fmt::format("{}: no building \"{}\" with indoor data; {}", file, name,
                    names.empty() ? "no building in it has any" : "the buildings are " + names));
  }
  const OsmThing building = *found;
  const std::set<OsmPosition> corners = cornersOf(building);
  keepIf(things, [&](const OsmThing& thing) {
    return thing.id == building.id || contains(building, positionOf(thing)) ||
           (thing.isNode() && corners.contains(thing.points[0]));
  });
}

}  // namespace orivanta::importer
