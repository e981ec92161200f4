#include "Apps/Import/Doors/GuessDoors.hpp"

#include <algorithm>
#include <boost/unordered/unordered_flat_map.hpp>
#include <boost/unordered/unordered_flat_set.hpp>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "Apps/Import/Doors/DoorsToPaths.hpp"
#include "Apps/Import/Doors/Entrances.hpp"
#include "Apps/Import/Doors/RoomNeighbors.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Doors/WallContact.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/OpenShape.hpp"
#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/IdMap.hpp"

namespace orivanta::importer {

namespace {

using Choose = std::function<bool(const std::string& area)>;

class Guess {
 public:
  Guess(Building& building, double level)
      : building_(building),
        level_(level),
        walkways_(hasWalkways(building, level)),
        space_(walkableSpace(building, level)),
        walkable_(building, level, [this](const Area& area) { return isWalked(area, walkways_); }),
        rooms_(building, level, [this](const Area& area) { return isRoom(area); }),
        contents_(building, level,
                  [](const Area& area) { return area.kind != AreaKind::obstacle; }),
        entrances_(building, level, contents_),
        neighbors_(rooms_, contents_) {
    for (const Area& area : building.areas)
      if (area.level == level && isWalked(area, walkways_)) reached_.insert(area.id);
    for (const Door& door : building.doors)
      if (door.level == level) addToGraph(door);
    const std::vector<std::string> walkways(reached_.begin(), reached_.end());
    for (const std::string& id : walkways) reachFrom(id);
  }

  void run() {
    std::vector<const Area*> left;
    for (const Area& area : building_.areas) {
      if (area.level != level_ || !isRoom(area)) continue;
      const bool needsDoor = !joined_.contains(area.id);
      if (!needsDoor && (reached_.contains(area.id) || !isBuilding(area))) continue;
      if (std::optional<Door> door = toWalkway(area))
        add(std::move(*door));
      else if (needsDoor)
        left.push_back(&area);
    }
    // Paths on other storeys may lead nowhere.
    const bool isGround = level_ == 0.0;
    if (isGround) joinToPaths(left);
    joinToReached(left);
    if (!isGround) {
      joinToPaths(left);
      joinToReached(left);
    }
    boost::unordered_flat_set<std::string> withDoor;
    for (const auto& [id, neighbors] : joined_) withDoor.insert(id);
    addDoorsToNeighbors(left, [&](const std::string& id) { return withDoor.contains(id); });
    for (const Area* room : left)
      if (isGround && !joined_.contains(room->id))
        if (std::optional<Door> door = entrances_.of(*room)) add(std::move(*door));
    building_.doors.insert(building_.doors.end(), doors_.begin(), doors_.end());
  }

 private:
  bool isRoom(const Area& area) const { return isEnterableRoom(area, walkways_); }

  void addToGraph(const Door& door) {
    for (const std::string& id : door.areas) {
      std::vector<std::string>& neighbors = joined_[id];
      neighbors.insert(neighbors.end(), door.areas.begin(), door.areas.end());
    }
  }

  void reachFrom(const std::string& id) {
    std::vector<std::string> open{id};
    while (!open.empty()) {
      const std::string next = std::move(open.back());
      open.pop_back();
      const auto neighbors = joined_.find(next);
      if (neighbors == joined_.end()) continue;
      for (const std::string& neighbor : neighbors->second)
        if (reached_.insert(neighbor).second) {
          newlyReached_.push_back(neighbor);
          open.push_back(neighbor);
        }
    }
  }

  // `door.areas` begins with the room for which the door is made.
  void add(Door door) {
    addToGraph(door);
    if (door.areas.size() == 1 || reached_.contains(door.areas.back())) {
      if (reached_.insert(door.areas.front()).second) newlyReached_.push_back(door.areas.front());
      reachFrom(door.areas.front());
    }
    doors_.push_back(std::move(door));
  }

  // Paths are lines, which rooms beside them do not touch.
  void joinToPaths(std::vector<const Area*>& rooms) {
    if (space_.empty() || !hasPaths(building_, level_)) return;
    const DoorsToPaths paths(space_, contents_);
    std::vector<Line> lines = pathsOfDoors(paths);
    std::erase_if(rooms, [&](const Area* room) {
      const auto found = paths.from(*room, openShape(*room, contents_));
      if (!found) return false;
      Door door = guessedDoor(*room, found->contact);
      lines.push_back(pathFrom(door, found->target));
      add(std::move(door));
      return true;
    });
    if (lines.empty()) return;
    building_.lines.insert(building_.lines.end(), lines.begin(), lines.end());
    building_.walkableSpaces.erase(level_);
  }

  // The paths from doors that the source has.
  std::vector<Line> pathsOfDoors(const DoorsToPaths& paths) const {
    IdMap<const Area*> rooms;
    for (const Area& area : building_.areas)
      if (area.level == level_ && isRoom(area)) rooms.emplace(area.id, &area);
    std::vector<Line> lines;
    for (const Door& door : building_.doors) {
      if (door.level != level_ || door.areas.size() != 1 || door.kind == DoorKind::emergency)
        continue;
      const auto room = rooms.find(door.areas.front());
      if (room == rooms.end()) continue;
      if (const auto target = paths.from(*room->second, door))
        lines.push_back(pathFrom(door, *target));
    }
    return lines;
  }

  // A building that is drawn as a room around its walkways.
  bool isBuilding(const Area& room) const {
    const std::vector<const Area*> near = walkable_.near(room.shape, 0.0);
    return std::any_of(near.begin(), near.end(),
                       [&](const Area* walkway) { return isAround(room, *walkway); });
  }

  std::optional<Door> toWalkway(const Area& room) const {
    if (space_.empty()) return {};
    const auto contact = longestContact(openShape(room, contents_),
                                        [this](Point point) { return space_.contains(point); });
    if (!contact) return {};
    Door door = guessedDoor(room, *contact);
    const Point along = contact->to - contact->from;
    const Point outward = Point{along.y, -along.x} * (1.0 / contact->length());
    for (const double depth : wallDepths)
      if (const Area* behind = walkable_.smallestAt(door.position + outward * depth)) {
        door.areas.push_back(behind->id);
        break;
      }
    return door;
  }

  // The door to the neighbor with which the room has the longest wall in common.
  std::optional<Door> toNeighbor(const Area& room, const Choose& choose) {
    const RoomNeighbors::Neighbor* best = nullptr;
    for (const RoomNeighbors::Neighbor& one : neighbors_.of(room))
      if (choose(one.id) && (best == nullptr || one.contact.length() > best->contact.length()))
        best = &one;
    if (best == nullptr) return {};
    Door door = guessedDoor(room, best->contact);
    door.areas.push_back(best->id);
    return door;
  }

  // Joins rooms with neighbors that are reached, and removes these rooms from the list.
  void joinToReached(std::vector<const Area*>& rooms) {
    IdSet buildings;
    for (const Area& area : building_.areas)
      if (area.level == level_ && isRoom(area) && isBuilding(area)) buildings.insert(area.id);
    joinToNeighbors(rooms, [&](const std::string& id) {
      return reached_.contains(id) && !buildings.contains(id);
    });
    std::erase_if(rooms, [&](const Area* room) { return joined_.contains(room->id); });
  }

  // Rooms behind rooms, in rounds: one round joins rooms with those that the round before reached.
  void joinToNeighbors(const std::vector<const Area*>& rooms, const Choose& choose) {
    std::map<std::string, std::vector<const Area*>> beside;
    for (const Area* room : rooms)
      for (const RoomNeighbors::Neighbor& one : neighbors_.of(*room))
        beside[one.id].push_back(room);
    std::vector<const Area*> next = rooms;
    while (!next.empty()) {
      newlyReached_.clear();
      addDoorsToNeighbors(next, choose);
      std::set<const Area*> candidates;
      for (const std::string& id : newlyReached_)
        for (const Area* room : beside[id])
          if (!joined_.contains(room->id)) candidates.insert(room);
      next.assign(candidates.begin(), candidates.end());
    }
  }

  void addDoorsToNeighbors(const std::vector<const Area*>& rooms, const Choose& choose) {
    std::vector<Door> made;
    for (const Area* room : rooms)
      if (std::optional<Door> door = toNeighbor(*room, choose)) made.push_back(std::move(*door));
    for (Door& door : made) add(std::move(door));
  }

  Building& building_;
  double level_;
  bool walkways_;
  Space space_;
  AreaIndex walkable_;
  AreaIndex rooms_;
  AreaIndex contents_;
  Entrances entrances_;
  // Areas by area, through doors.
  boost::unordered_flat_map<std::string, std::vector<std::string>> joined_;
  boost::unordered_flat_set<std::string> reached_;  // areas, from walkways
  std::vector<std::string> newlyReached_;
  RoomNeighbors neighbors_;
  std::vector<Door> doors_;
};

}  // namespace

void guessDoors(Building& building, double level) { Guess(building, level).run(); }

}  // namespace orivanta::importer
