#include "Apps/Import/Doors/WalkableSpace.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "Apps/Import/Doors/Doorway.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/Overlap.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

namespace {

constexpr double halfGap = 0.04;        // half of the gaps that are closed between walkways
constexpr double halfWall = 0.05;       // half of the thickness of walls that are drawn as lines
constexpr double halfPartition = 0.06;  // the same of walls between walkways
constexpr double doorDepth = 0.75;      // how far a doorway reaches to both sides
constexpr double smallestPart = 0.1;    // square meters

bool isPath(const Line& line) {
  return (line.kind == LineKind::path || line.kind == LineKind::ramp) &&
         line.access != Access::nobody;
}

bool isWall(const Line& line) {
  return line.kind == LineKind::wall || line.kind == LineKind::barrier;
}

bool isOn(const Line& line, double level) {
  return std::find(line.levels.begin(), line.levels.end(), level) != line.levels.end();
}

// Makes the space of one storey.
class Maker {
 public:
  Maker(const Building& building, double level)
      : building_(building),
        level_(level),
        walkways_(hasWalkways(building, level)),
        index_(building, level, [this](const Area& area) { return walkable(area); }) {
    for (const Area& area : building.areas)
      if (area.level == level && walkable(area)) byId_.emplace(area.id, &area);
  }

  Shape make() const {
    Shape shape = ground();
    if (shape.empty()) return {};
    const Shape drawn = shape;
    shape = without(shape, united(walls()));
    if (const Shape doors = doorways(drawn); !doors.empty()) shape = united(joined(shape, doors));
    shape = without(shape, united(blockers()));
    std::erase_if(shape, [](const Polygon& polygon) { return areaOf(polygon) < smallestPart; });
    return shape;
  }

 private:
  bool walkable(const Area& area) const { return isWalked(area, walkways_); }

  // Walkways and paths, with narrow gaps closed.
  Shape ground() const {
    Shape shape;
    for (const Area& area : building_.areas)
      if (area.level == level_ && walkable(area)) shape = joined(std::move(shape), area.shape);
    for (const Line& line : building_.lines)
      if (isPath(line) && isOn(line, level_)) {
        const double width = std::clamp(line.width.value_or(1.2), 0.8, 6.0);
        shape = joined(std::move(shape), strip(line.points, width / 2.0));
      }
    if (shape.empty() && walksBetweenRooms(building_, level_)) return betweenRooms();
    Shape wide;
    for (const Polygon& polygon : united(shape))
      wide = joined(std::move(wide), withMargin({polygon}, halfGap));
    return withMargin(united(wide), -halfGap);
  }

  // The outline of the storey without its areas and the thin rests between them.
  Shape betweenRooms() const {
    Shape areas;
    for (const Area& area : building_.areas)
      if (area.level == level_) areas = joined(std::move(areas), area.shape);
    Shape outline;
    for (const Storey& storey : building_.storeys)
      if (storey.ordinal == level_) outline = joined(std::move(outline), storey.footprint);
    constexpr double halfNarrow = 0.4;
    return withMargin(withMargin(without(united(outline), united(areas)), -halfNarrow), halfNarrow);
  }

  Shape walls() const {
    Shape shape = partitions();
    for (const Area& area : building_.areas)
      if (area.level == level_ && area.kind == AreaKind::wall)
        shape = joined(std::move(shape), area.shape);
    for (const Line& line : building_.lines)
      if (isWall(line) && isOn(line, level_))
        shape = joined(std::move(shape), strip(line.points, halfWall));
    return shape;
  }

  // The walkways that a door joins.
  std::vector<const Area*> walkwaysOf(const Door& door) const {
    std::vector<const Area*> found;
    for (const std::string& id : door.areas)
      if (const auto area = byId_.find(id); area != byId_.end()) found.push_back(area->second);
    return found;
  }

  // Thin walls on the common borders of walkways with doors between them.
  Shape partitions() const {
    Shape shape;
    std::set<std::pair<std::string, std::string>> done;
    for (const Door& door : building_.doors) {
      if (door.level != level_) continue;
      const std::vector<const Area*> sides = walkwaysOf(door);
      if (sides.size() != 2 || sides[0] == sides[1]) continue;
      if (!done.insert(std::minmax(sides[0]->id, sides[1]->id)).second) continue;
      constexpr double overlap = 0.5;
      if (overlapExceeds(sides[0]->shape, sides[1]->shape, overlap)) continue;
      shape = joined(std::move(shape), common(withMargin(sides[0]->shape, halfPartition),
                                              withMargin(sides[1]->shape, halfPartition)));
    }
    return shape;
  }

  // Doors with walkways on all sides that are known. Doors at the border of the walkable space make
  // no hole in it; the two sides of others may belong to one walkway.
  Shape doorways(const Shape& drawn) const {
    const Space space(drawn);
    Shape shape;
    for (const Door& door : building_.doors) {
      if (door.level != level_ || door.areas.empty()) continue;
      const std::vector<const Area*> sides = walkwaysOf(door);
      if (sides.size() != door.areas.size()) continue;
      const Point along = wallDirection(door, sides);
      const Point across = Point{-along.y, along.x} * doorDepth;
      if (space.contains(door.position + across) && space.contains(door.position - across))
        shape.push_back(doorway(door, along, doorDepth));
    }
    return shape;
  }

  // Rooms and everything else that nobody walks through.
  Shape blockers() const {
    Shape shape;
    for (const Area& area : building_.areas) {
      if (area.level != level_ || walkable(area) || area.kind == AreaKind::wall) continue;
      const bool room = area.kind == AreaKind::room || area.kind == AreaKind::unknown;
      shape = joined(std::move(shape), room ? withoutInnerWalkways(area) : area.shape);
    }
    return shape;
  }

  // A large room that is drawn around or below a smaller walkway leaves the walkway free.
  Shape withoutInnerWalkways(const Area& room) const {
    Shape shape = room.shape;
    const double surface = areaOf(room.shape);
    for (const Area* walkway : index_.near(room.shape, 0.0)) {
      const double inner = areaOf(walkway->shape);
      constexpr double mostly = 0.9;
      if (inner < surface && overlapExceeds(room.shape, walkway->shape, mostly * inner))
        shape = without(shape, walkway->shape);
    }
    return shape;
  }

  const Building& building_;
  double level_;
  bool walkways_;
  AreaIndex index_;
  std::unordered_map<std::string, const Area*> byId_;
};

}  // namespace

bool isWalkway(AreaKind kind, bool storeyHasWalkways) {
  return kind == AreaKind::walkway || kind == AreaKind::ramp ||
         (kind == AreaKind::unknown && !storeyHasWalkways);
}

bool isWalked(const Area& area, bool storeyHasWalkways) {
  return isWalkway(area.kind, storeyHasWalkways) && area.access != Access::nobody;
}

bool isEnterableRoom(const Area& area, bool storeyHasWalkways) {
  return (area.kind == AreaKind::room || (area.kind == AreaKind::unknown && storeyHasWalkways)) &&
         area.access != Access::nobody;
}

bool hasWalkways(const Building& building, double level) {
  return std::any_of(
             building.areas.begin(), building.areas.end(),
             [&](const Area& area) { return area.level == level && isWalkway(area.kind, true); }) ||
         std::any_of(building.lines.begin(), building.lines.end(),
                     [&](const Line& line) { return isPath(line) && isOn(line, level); });
}

bool walksBetweenRooms(const Building& building, double level) {
  const bool hasOutline = std::any_of(
      building.storeys.begin(), building.storeys.end(),
      [&](const Storey& storey) { return storey.ordinal == level && !storey.footprint.empty(); });
  const auto count = [&](AreaKind kind) {
    return std::count_if(building.areas.begin(), building.areas.end(), [&](const Area& area) {
      return area.level == level && area.kind == kind;
    });
  };
  return hasOutline && !hasWalkways(building, level) && count(AreaKind::unknown) == 0 &&
         count(AreaKind::room) >= 2;
}

Shape walkableSpace(const Building& building, double level) {
  const auto known = building.walkableSpaces.find(level);
  return known == building.walkableSpaces.end() ? Maker(building, level).make() : known->second;
}

}  // namespace orivanta::importer
