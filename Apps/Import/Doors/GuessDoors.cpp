#include "Apps/Import/Doors/GuessDoors.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "Apps/Import/Doors/DoorsToPaths.hpp"
#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Doors/WallContact.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/Geometry/OpenShape.hpp"
#include "Apps/Import/Geometry/Space.hpp"

namespace orivanta::importer {

namespace {

constexpr double usualWidth = 1.0;

using Choose = std::function<bool(const std::string& area)>;

Door doorAt(const Area& room, const WallContact& contact) {
  Door door;
  door.id = room.id + "/door";
  door.source = room.source;
  door.level = room.level;
  door.position = (contact.from + contact.to) * 0.5;
  door.width = std::min(contact.length(), usualWidth);
  const Point half = (contact.to - contact.from) * (*door.width / contact.length() / 2.0);
  door.line = {door.position - half, door.position + half};
  door.guessed = true;
  door.areas = {room.id};
  return door;
}

// The outline of a storey without its outer walls and what is in front of them.
Shape innerOutline(const Building& building, double level) {
  constexpr double walls = 1.5;
  Shape outline;
  for (const Storey& storey : building.storeys)
    if (storey.ordinal == level) outline = joined(std::move(outline), storey.footprint);
  return withMargin(united(outline), -walls);
}

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
        passages_(innerOutline(building, level)) {
    for (const Area& area : building.areas)
      if (area.level == level && isWalked(area, walkways_)) reached_.insert(area.id);
    for (const Door& door : building.doors)
      if (door.level == level) addToGraph(door);
    for (const std::string& id : std::set<std::string>(reached_)) reachFrom(id);
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
    if (hasPaths()) joinToPaths(left);
    std::set<std::string> buildings;
    for (const Area& area : building_.areas)
      if (area.level == level_ && isRoom(area) && isBuilding(area)) buildings.insert(area.id);
    joinToNeighbors(left, [&](const std::string& id) {
      return reached_.contains(id) && !buildings.contains(id);
    });
    std::erase_if(left, [&](const Area* room) { return joined_.contains(room->id); });
    std::set<std::string> withDoor;
    for (const auto& [id, neighbors] : joined_) withDoor.insert(id);
    addDoorsToNeighbors(left, [&](const std::string& id) { return withDoor.contains(id); });
    for (const Area* room : left)
      if (level_ == 0.0 && !joined_.contains(room->id))
        if (std::optional<Door> door = toOutside(*room)) add(std::move(*door));
    building_.doors.insert(building_.doors.end(), doors_.begin(), doors_.end());
  }

 private:
  bool isRoom(const Area& area) const {
    return (area.kind == AreaKind::room ||
            (area.kind == AreaKind::unknown && !isWalkway(area.kind, walkways_))) &&
           area.access != Access::nobody;
  }

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

  bool hasPaths() const {
    return !space_.empty() &&
           std::any_of(building_.lines.begin(), building_.lines.end(), [&](const Line& line) {
             return line.kind == LineKind::path && line.levels == std::vector<double>{level_};
           });
  }

  // Paths are lines, which rooms beside them do not touch.
  void joinToPaths(std::vector<const Area*>& rooms) {
    const DoorsToPaths paths(space_, contents_);
    std::vector<Line> lines;
    std::map<std::string, const Area*> byId;
    for (const Area& area : building_.areas)
      if (area.level == level_ && isRoom(area)) byId.emplace(area.id, &area);
    for (const Door& door : building_.doors) {
      if (door.level != level_ || door.areas.size() != 1 || door.kind == DoorKind::emergency)
        continue;
      const auto room = byId.find(door.areas.front());
      if (room == byId.end()) continue;
      if (const auto target = paths.from(*room->second, door))
        lines.push_back(pathFrom(door, *target));
    }
    std::erase_if(rooms, [&](const Area* room) {
      const auto found = paths.from(*room, openShape(*room, contents_));
      if (!found) return false;
      Door door = doorAt(*room, found->contact);
      lines.push_back(pathFrom(door, found->target));
      add(std::move(door));
      return true;
    });
    if (lines.empty()) return;
    building_.lines.insert(building_.lines.end(), lines.begin(), lines.end());
    building_.walkableSpaces.erase(level_);
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
    Door door = doorAt(room, *contact);
    const Point along = contact->to - contact->from;
    const Point outward = Point{along.y, -along.x} * (1.0 / contact->length());
    for (const double depth : wallDepths)
      if (const Area* behind = walkable_.smallestAt(door.position + outward * depth)) {
        door.areas.push_back(behind->id);
        break;
      }
    return door;
  }

  // An entrance in the longest wall behind which nothing is drawn: one within the outline of the
  // storey, which faces a passage, rather than one at the outline.
  std::optional<Door> toOutside(const Area& room) const {
    const auto isOutside = [this](Point point) { return contents_.smallestAt(point) == nullptr; };
    const Shape shape = openShape(room, contents_);
    auto contact = longestContact(shape, [&](Point point) {
      return !passages_.empty() && passages_.contains(point) && isOutside(point);
    });
    if (!contact) contact = longestContact(shape, isOutside);
    if (!contact) return {};
    Door door = doorAt(room, *contact);
    door.kind = DoorKind::entrance;
    return door;
  }

  // A room beside another one, and the longest straight wall that they have in common.
  struct Neighbor {
    std::string id;
    WallContact contact;
  };

  const Space& openSpaceOf(const Area& room) {
    std::unique_ptr<const Space>& space = openSpaces_[&room];
    if (!space) space = std::make_unique<const Space>(openShape(room, contents_));
    return *space;
  }

  const std::vector<Neighbor>& neighborsOf(const Area& room) {
    const auto [entry, isNew] = neighbors_.try_emplace(&room);
    if (!isNew) return entry->second;
    constexpr std::size_t mostTried = 200;  // more rooms beside one room are damage
    const Shape shape = openShape(room, contents_);
    std::vector<const Area*> near = rooms_.near(room.shape, wallDepths.back());
    if (near.size() > mostTried) near.resize(mostTried);
    for (const Area* other : near) {
      if (other == &room) continue;
      const Space& open = openSpaceOf(*other);
      if (const auto contact =
              longestContact(shape, [&open](Point point) { return open.contains(point); }))
        entry->second.push_back({other->id, *contact});
    }
    return entry->second;
  }

  // The door to the neighbor with which the room has the longest wall in common.
  std::optional<Door> toNeighbor(const Area& room, const Choose& choose) {
    const Neighbor* best = nullptr;
    for (const Neighbor& one : neighborsOf(room))
      if (choose(one.id) && (best == nullptr || one.contact.length() > best->contact.length()))
        best = &one;
    if (best == nullptr) return {};
    Door door = doorAt(room, best->contact);
    door.areas.push_back(best->id);
    return door;
  }

  // Rooms behind rooms, in rounds: one round joins rooms with those that the round before reached.
  void joinToNeighbors(const std::vector<const Area*>& rooms, const Choose& choose) {
    std::map<std::string, std::vector<const Area*>> beside;
    for (const Area* room : rooms)
      for (const Neighbor& one : neighborsOf(*room)) beside[one.id].push_back(room);
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
  Space passages_;
  std::map<std::string, std::vector<std::string>> joined_;  // areas by area, through doors
  std::set<std::string> reached_;                           // areas, from walkways
  std::vector<std::string> newlyReached_;
  std::map<const Area*, std::unique_ptr<const Space>> openSpaces_;
  std::map<const Area*, std::vector<Neighbor>> neighbors_;
  std::vector<Door> doors_;
};

}  // namespace

void guessDoors(Building& building, double level) { Guess(building, level).run(); }

}  // namespace orivanta::importer
