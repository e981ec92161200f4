#include "Apps/Import/Network/Rooms.hpp"

#include "Apps/Import/Doors/WalkableSpace.hpp"
#include "Apps/Import/Geometry/InnerPoint.hpp"
#include "Apps/Import/Geometry/OpenShape.hpp"
#include "Apps/Import/Network/Attach.hpp"
#include "Apps/Import/Network/Sight.hpp"
#include "Apps/Import/Network/Tidy.hpp"
#include "Apps/Import/Network/Trunk.hpp"

namespace orivanta::importer {

namespace {

double weightOf(const Area& room) {
  return room.access == Access::staff ? staffWeight : crossingWeight;
}

constexpr double narrow = 0.12;  // meters

// Joins the second node of a room with the first by a short way.
bool addShortWay(const Shape& shape, const Space& space, Draft& draft) {
  constexpr double longest = 500.0;
  Ways ways(shape, narrow, space);
  const auto bends = ways.between(draft.nodes[1], draft.nodes[0], longest);
  if (!bends) return false;
  std::uint32_t last = 1;
  for (const Point bend : *bends) {
    const std::uint32_t next = draft.addWay(bend);
    draft.addEdge(last, next, false);
    last = next;
  }
  draft.addEdge(last, 0, false);
  return true;
}

// Joins the nodes of a room with each other.
void addRoomLines(const Shape& shape, const Space& space, Draft& draft) {
  const std::size_t count = draft.nodes.size();
  if (count == 2 && addShortWay(shape, space, draft)) return;
  const Skeleton skeleton = makeSkeleton(shape, narrow);
  addTrunk(skeleton, space, draft);
  Ways ways(skeleton, space);
  Attach attach(draft, space, ways, Attach::Lines::keep);
  for (std::uint32_t i = 0; i < count; ++i) attach.attach(i);
  attach.finish();
  mergeNearNodes(space, draft);
  removeDeadEnds(draft);
  removeUnused(draft);
}

}  // namespace

Rooms::Rooms(const Building& building, double level)
    : index_(building, level,
             [walkways = hasWalkways(building, level)](const Area& area) {
               return isEnterableRoom(area, walkways);
             }),
      contents_(building, level, [](const Area& area) { return area.kind != AreaKind::obstacle; }) {
  const bool walkways = hasWalkways(building, level);
  for (const Area& area : building.areas) {
    if (area.level != level || area.shape.empty() || !isEnterableRoom(area, walkways)) continue;
    if (byId_.emplace(area.id, rooms_.size()).second) rooms_.emplace_back().area = &area;
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
    const double distance = index_.distance(*room, point, 2.0 * within);
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

void Rooms::addInsides(Draft& draft) {
  for (Room& room : rooms_) {
    if (room.hasInside) continue;
    setInside(*room.area, draft.addNode({innerPoint(openShape(*room.area, contents_)),
                                         NodeKind::inside,
                                         room.area->id,
                                         room.area->id,
                                         weightOf(*room.area),
                                         0.0,
                                         0.0,
                                         {}}));
  }
}

void Rooms::join(std::uint32_t node, const Area& area) {
  Room& room = rooms_[byId_.at(area.id)];
  if (room.hasInside && room.inside != node) room.joined.push_back(node);
}

void Rooms::finish(Draft& draft) {
  for (const Room& room : rooms_)
    if (!room.joined.empty()) connect(room, draft);
}

void Rooms::connect(const Room& room, Draft& draft) const {
  const Shape shape = openShape(*room.area, contents_);
  const Space space(shape);
  Draft own;
  own.addNode(draft.nodes[room.inside]);
  bool allSee = true;
  for (const std::uint32_t node : room.joined) {
    DraftNode one = draft.nodes[node];
    constexpr double farthest = 5.0;
    placeBeside(space, one, farthest);
    allSee = allSee && sees(space, one, own.nodes.front());
    own.addNode(std::move(one));
  }
  if (allSee) {
    for (const std::uint32_t node : room.joined) draft.addRoomEdge(node, room.inside);
    return;
  }
  addRoomLines(shape, space, own);
  std::vector<std::uint32_t> nodes{room.inside};
  nodes.insert(nodes.end(), room.joined.begin(), room.joined.end());
  for (std::size_t i = nodes.size(); i < own.nodes.size(); ++i) {
    own.nodes[i].weight = weightOf(*room.area);
    own.nodes[i].of = room.area->id;
    nodes.push_back(draft.addNode(own.nodes[i]));
  }
  for (const DraftEdge& edge : own.edges) draft.addRoomEdge(nodes[edge.from], nodes[edge.to]);
}

}  // namespace orivanta::importer
