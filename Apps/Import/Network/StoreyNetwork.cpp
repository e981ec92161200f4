#include "Apps/Import/Network/StoreyNetwork.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/InnerPoint.hpp"
#include "Apps/Import/Network/Attach.hpp"
#include "Apps/Import/Network/LooseSpots.hpp"
#include "Apps/Import/Network/MainLines.hpp"
#include "Apps/Import/Network/OneWayStops.hpp"
#include "Apps/Import/Network/Rooms.hpp"
#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/SourceLines.hpp"
#include "Apps/Import/Network/StaffOnly.hpp"
#include "Apps/Import/Network/Straighten.hpp"
#include "Apps/Import/Network/Tidy.hpp"

namespace orivanta::importer {

namespace {

constexpr double doorReach = 1.0;  // meters between a door and the walkable space
constexpr double stopReach = 1.5;  // the same of connectors
constexpr double spotReach = 2.5;  // the same of places
constexpr double sameNode = 0.5;   // a door this near to a node of the source is that node
constexpr double sourceReach = 15.0;

class Maker {
 public:
  Maker(const Building& building, double level, NetworkChoice choice)
      : building_(building),
        level_(level),
        walkways_(hasWalkways(building, level)),
        shape_(walkableSpace(building, level)),
        space_(shape_),
        ways_(shape_, nodeClearance, space_),
        rooms_(building, level) {
    for (const Area& area : building.areas)
      if (area.level == level && isWalked(area, walkways_)) walkable_.insert(area.id);
    if (usesSourceLines(building, level, choice)) source_.emplace(building, level, draft_);
    if (source_)
      sourceRooms_ = source_->claimInsides(doors(), rooms_, draft_);
    else
      addMainLines(shape_, space_, ways_, draft_);
  }

  Draft make() {
    Attach attach(draft_, space_, ways_, source_ ? Attach::Lines::keep : Attach::Lines::bend);
    attach_ = &attach;
    rooms_.addInsides(draft_);
    addDoors();
    addStops();
    addSpots();
    addWalkwayPlaces();
    if (!source_) coverSpace(shape_, space_, draft_, attach);
    attach.finish();
    rooms_.finish(draft_);
    if (source_) joinSpotsToSource(*source_, spotReach, draft_);
    if (!source_) straightenWays(space_, ways_, draft_);
    joinSpotsToStops(building_, level_, spotReach, draft_);
    orientStops(entered_, draft_);
    removeUnused(draft_);
    weighStaffOnly(building_, level_, walkable_, draft_);
    return std::move(draft_);
  }

 private:
  std::vector<const Door*> doors() const {
    std::vector<const Door*> found;
    for (const Door& door : building_.doors)
      if (door.level == level_) found.push_back(&door);
    return found;
  }

  // Joins a node with the lines if it is in or near the walkable space.
  bool joinWalkway(std::uint32_t node, double within) {
    if (placeBeside(space_, draft_.nodes[node], within) && attach_->attach(node)) return true;
    return source_ && attach_->attachAnyhow(node, sourceReach);
  }

  std::uint32_t nodeOfDoor(const Door& door, bool& known) {
    known = false;
    if (source_)
      if (const auto node = source_->freeNodeAt(draft_, door.position, sameNode)) {
        known = true;
        draft_.nodes[*node].kind = NodeKind::door;
        draft_.nodes[*node].of = door.id;
        return *node;
      }
    return draft_.addNode(door.position, NodeKind::door, door.id, door.id);
  }

  void addDoors() {
    for (const Door& door : building_.doors) {
      if (door.level != level_) continue;
      if (door.access == Access::nobody) continue;
      bool known = false;
      const std::uint32_t node = nodeOfDoor(door, known);
      if (door.access == Access::staff) draft_.nodes[node].weight = staffWeight;
      for (const std::string& area : door.areas) doorsOf_.emplace(area, node);
      joinDoor(door, node, known);
    }
  }

  // An emergency exit is the end of a way, not a way between two areas. Doors and rooms that the
  // source has joined stay as they are.
  void joinDoor(const Door& door, std::uint32_t node, bool known) {
    const bool isWalked =
        std::any_of(door.areas.begin(), door.areas.end(),
                    [&](const std::string& id) { return walkable_.contains(id); });
    bool joined = known;
    if (!known && (isWalked || door.areas.size() < 2)) joined = joinWalkway(node, doorReach);
    if (door.kind == DoorKind::emergency && joined) return;
    for (const std::string& id : door.areas) {
      const Area* room = rooms_.find(id);
      if (room != nullptr && !(known && sourceRooms_.contains(id))) rooms_.join(node, *room);
    }
  }

  // Hangs a connector or a place on the lines, or on the room in which it is.
  void join(std::uint32_t node, double within) {
    const Point position = draft_.nodes[node].position;
    const Area* room = space_.contains(position) ? nullptr : rooms_.at(position);
    if (room != nullptr) return rooms_.join(node, *room);
    joinWalkway(node, within);
  }

  void addStops() {
    for (const Connector& connector : building_.connectors) {
      std::size_t count = 0;
      for (const Stop& stop : connector.stops) {
        ++count;
        if (stop.spot.level != level_) continue;
        addStop(connector, stop, fmt::format("{}/{}", connector.id, count));
      }
    }
  }

  void addStop(const Connector& connector, const Stop& stop, std::string id) {
    constexpr double samePlace = 0.05;
    const bool bothWays = stop.enter == stop.leave;
    std::optional<std::uint32_t> known;
    if (source_) known = source_->freeNodeAt(draft_, stop.spot.position, samePlace);
    if (known && bothWays) {
      draft_.nodes[*known].kind = NodeKind::boarding;
      draft_.nodes[*known].of = connector.id;
      if (connector.access == Access::staff) draft_.nodes[*known].weight = staffWeight;
      return;
    }
    const std::uint32_t node =
        draft_.addNode(stop.spot.position, NodeKind::boarding, std::move(id), connector.id);
    if (connector.access == Access::staff) draft_.nodes[node].weight = staffWeight;
    if (!bothWays) entered_.emplace(node, stop.enter);
    if (known)
      draft_.addEdge(node, *known, true);
    else
      joinStop(node, stop);
  }

  // A connector behind doors is reached through them, any other where it meets a walkway or a room.
  void joinStop(std::uint32_t node, const Stop& stop) {
    const auto [first, last] = doorsOf_.equal_range(stop.area);
    for (auto door = first; door != last; ++door) draft_.addRoomEdge(node, door->second);
    if (first != last) return;
    const Point position = draft_.nodes[node].position;
    const Area* room = rooms_.near(position, doorReach);
    if (space_.contains(position) || space_.clearance(position, stopReach) < stopReach ||
        room == nullptr)
      join(node, stopReach);
    else
      rooms_.join(node, *room);
  }

  void addSpots() {
    for (const Place& place : building_.places) {
      std::size_t count = 0;
      for (const Spot& spot : place.spots) {
        ++count;
        if (spot.level != level_) continue;
        Point position = spot.position;
        // What stands at a wall or is an obstacle itself is reached beside it.
        if (!space_.contains(position) && rooms_.at(position) == nullptr)
          position = space_.foot(position, spotReach, nodeClearance).value_or(position);
        join(draft_.addNode(position, NodeKind::spot, fmt::format("{}/{}", place.id, count),
                            place.id),
             spotReach);
      }
    }
  }

  // Named halls and platforms are places, too.
  void addWalkwayPlaces() {
    for (const Area& area : building_.areas) {
      if (area.level != level_ || area.place.empty() || !walkable_.contains(area.id)) continue;
      const Shape open = common(area.shape, shape_);
      if (open.empty()) continue;
      join(draft_.addNode(innerPoint(open), NodeKind::inside, area.id, area.id), spotReach);
    }
  }

  const Building& building_;
  double level_;
  bool walkways_;
  Shape shape_;
  Space space_;
  Ways ways_;
  Rooms rooms_;
  std::set<std::string> walkable_;
  std::set<std::string> sourceRooms_;  // whose inner nodes are the source's
  Draft draft_;
  std::optional<SourceLines> source_;
  Attach* attach_ = nullptr;
  std::multimap<std::string, std::uint32_t> doorsOf_;  // of each area
  std::map<std::uint32_t, bool> entered_;  // of the nodes that are only entered or only left
};

}  // namespace

Draft makeStoreyNetwork(const Building& building, double level, NetworkChoice choice) {
  return Maker(building, level, choice).make();
}

}  // namespace orivanta::importer
