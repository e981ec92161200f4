#include <algorithm>
#include <array>
#include <set>

#include "Apps/Import/Doors/Doorway.hpp"
#include "Apps/Import/Doors/GuessDoors.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/IdMap.hpp"
#include "Apps/Import/Stages.hpp"

namespace orivanta::importer {

namespace {

constexpr double reach = 0.6;  // meters between the middle of an opening and a room
constexpr std::array depths{0.08, 0.25, 0.45, 0.7, 0.95};

bool hasDoors(const Area& area) {
  return area.kind != AreaKind::wall && area.kind != AreaKind::obstacle &&
         area.kind != AreaKind::opening;
}

class Joiner {
 public:
  Joiner(const Building& building, double level) : index_(building, level, hasDoors) {}

  void join(Door& door) const {
    std::vector<const Area*> near = index_.near(door.position, reach);
    std::erase_if(near, [&](const Area* area) { return distance(*area, door.position) > reach; });
    if (near.empty()) return;
    const bool wasLoose = door.areas.empty();
    const Point along = wallDirection(door, near);
    const Point across{-along.y, along.x};
    for (const Point side : {across, across * -1.0}) add(door, areaBeside(near, door, side));
    if (door.areas.empty()) add(door, nearest(near, door.position));
    // A point beside the wall lies within the same area on both sides.
    if (wasLoose && door.areas.size() == 1 && door.line.empty())
      for (const Point side : {across, across * -1.0}) add(door, areaBehindWall(near, door, side));
    if (door.kind == DoorKind::door && door.areas.size() == 1 && leadsOutdoors(door, across))
      door.kind = DoorKind::entrance;
  }

 private:
  static void add(Door& door, const Area* area) {
    constexpr std::size_t sides = 2;
    if (area != nullptr && door.areas.size() < sides &&
        std::find(door.areas.begin(), door.areas.end(), area->id) == door.areas.end())
      door.areas.push_back(area->id);
  }

  double distance(const Area& area, Point point) const {
    return index_.distance(area, point, 2.0 * reach);
  }

  // The smallest of the areas beside the door: a kiosk in a hall, not the hall.
  const Area* areaBeside(const std::vector<const Area*>& near, const Door& door, Point side) const {
    for (const double depth : depths) {
      const Area* area = index_.smallestAt(door.position + side * depth);
      if (area != nullptr && std::find(near.begin(), near.end(), area) != near.end()) return area;
    }
    return nullptr;
  }

  // The first area that the door does not join yet.
  const Area* areaBehindWall(const std::vector<const Area*>& near, const Door& door,
                             Point side) const {
    constexpr double thickestWall = 0.25;
    for (const double depth : depths) {
      if (depth > thickestWall) break;
      const Area* area = index_.smallestAt(door.position + side * depth);
      if (area == nullptr || area->id == door.areas.front()) continue;
      return std::find(near.begin(), near.end(), area) == near.end() ? nullptr : area;
    }
    return nullptr;
  }

  const Area* nearest(const std::vector<const Area*>& near, Point point) const {
    return *std::min_element(near.begin(), near.end(), [&](const Area* a, const Area* b) {
      return distance(*a, point) < distance(*b, point);
    });
  }

  // Nothing is drawn for some meters on one side.
  bool leadsOutdoors(const Door& door, Point across) const {
    if (door.level != 0.0) return false;
    const auto isFree = [&](Point side) {
      return std::all_of(depths.begin(), depths.end(), [&](double depth) {
        return index_.smallestAt(door.position + side * (4.0 * depth)) == nullptr;
      });
    };
    return isFree(across) || isFree(across * -1.0);
  }

  AreaIndex index_;
};

// Removes names of areas that do not exist or lie on other storeys.
void dropUnknownAreas(Building& building) {
  IdMap<double> levels;
  for (const Area& area : building.areas) levels.emplace(area.id, area.level);
  for (Door& door : building.doors)
    std::erase_if(door.areas, [&](const std::string& id) {
      const auto level = levels.find(id);
      return level == levels.end() || level->second != door.level;
    });
}

}  // namespace

void joinDoors(Building& building, const Options& options, Findings&) {
  dropUnknownAreas(building);
  std::set<double> levels;
  for (const Area& area : building.areas) levels.insert(area.level);
  for (const double level : levels) {
    const Joiner joiner(building, level);
    for (Door& door : building.doors)
      if (door.level == level) joiner.join(door);
  }
  building.walkableSpaces.clear();
  for (const double level : levels) {
    if (options.progress)
      options.progress("joining doors", static_cast<double>(building.walkableSpaces.size()) /
                                            static_cast<double>(levels.size()));
    building.walkableSpaces.emplace(level, walkableSpace(building, level));
    if (options.doors == DoorChoice::guess) guessDoors(building, level);
    // Guessed doors are those of rooms and do not change the space, but paths to them do.
    if (!building.walkableSpaces.contains(level))
      building.walkableSpaces.emplace(level, walkableSpace(building, level));
  }
}

}  // namespace orivanta::importer
