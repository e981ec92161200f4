#include "Apps/Import/Network/Rooms.hpp"

#include "Apps/Import/Geometry/InnerPoint.hpp"
#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/WalkableSpace.hpp"

namespace orivanta::importer {

Rooms::Rooms(const Building& building, double level)
    : index_(building, level, [&, walkways = hasWalkways(building, level)](const Area& area) {
        return area.kind == AreaKind::room || (area.kind == AreaKind::unknown && walkways);
      }) {
  const bool walkways = hasWalkways(building, level);
  for (const Area& area : building.areas) {
    if (area.level != level || area.shape.empty()) continue;
    if (area.kind != AreaKind::room && (area.kind != AreaKind::unknown || !walkways)) continue;
    if (!byId_.emplace(area.id, rooms_.size()).second) continue;
    rooms_.emplace_back().area = &area;
  }
}

Rooms::~Rooms() = default;

const Area* Rooms::find(const std::string& id) const {
  const auto room = byId_.find(id);
  return room == byId_.end() ? nullptr : rooms_[room->second].area;
}

const Area* Rooms::near(Point point, double within) const {
  if (const Area* room = at(point)) return room;
  const Area* nearest = nullptr;
  double best = within;
  for (const Area* room : index_.near(point, within)) {
    const double distance = distanceTo(room->shape, point);
    if (distance > best || (nearest != nullptr && distance == best)) continue;
    best = distance;
    nearest = room;
  }
  return nearest;
}

bool Rooms::setInside(const Area& room, std::uint32_t node) {
  Room& entry = rooms_[byId_.at(room.id)];
  if (entry.hasInside) return false;
  entry.inside = node;
  return entry.hasInside = true;
}

void Rooms::makeShape(Room& room) {
  if (!room.shape.empty()) return;
  room.shape = room.area->shape;
  const double surface = areaOf(room.shape);
  for (const Area* other : index_.near(room.area->shape, 0.0)) {
    if (other == room.area || areaOf(other->shape) >= surface) continue;
    constexpr double mostly = 0.5;
    if (areaOf(common(room.area->shape, other->shape)) > mostly * areaOf(other->shape))
      room.shape = without(room.shape, other->shape);
  }
  if (room.shape.empty()) room.shape = room.area->shape;
}

void Rooms::addInsides(Draft& draft) {
  for (Room& room : rooms_) {
    if (room.hasInside) continue;
    makeShape(room);
    setInside(*room.area, draft.addNode({innerPoint(room.shape),
                                         NodeKind::inside,
                                         room.area->id,
                                         room.area->id,
                                         crossingWeight,
                                         0.0,
                                         0.0,
                                         {}}));
  }
}

bool Rooms::join(Draft& draft, std::uint32_t node, const Area& area) {
  Room& room = rooms_[byId_.at(area.id)];
  if (!room.hasInside || room.inside == node) return room.hasInside;
  makeShape(room);
  if (room.space == nullptr) room.space = std::make_unique<Space>(room.shape);
  DraftNode from = draft.nodes[node];
  constexpr double farthest = 5.0;
  placeBeside(*room.space, from, farthest);
  const DraftNode inside = draft.nodes[room.inside];
  if (sees(*room.space, from, {inside.position, NodeKind::way, {}, {}, 0.0, 0.05, 0.0, {}})) {
    draft.addRoomEdge(node, room.inside);
    return true;
  }
  if (room.ways == nullptr) {
    constexpr double narrow = 0.12;
    room.skeleton = makeSkeleton(room.shape, narrow);
    room.ways = std::make_unique<Ways>(room.skeleton, *room.space);
  }
  const auto bends = room.ways->between(from, inside, 1000.0);
  if (!bends) return false;
  std::uint32_t last = node;
  for (const Point bend : *bends) {
    const std::uint32_t next =
        draft.addNode({bend, NodeKind::way, {}, area.id, crossingWeight, 0.0, 0.0, {}});
    draft.addRoomEdge(last, next);
    last = next;
  }
  draft.addRoomEdge(last, room.inside);
  return true;
}

}  // namespace orivanta::importer
