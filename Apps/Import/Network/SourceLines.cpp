#include "Apps/Import/Network/SourceLines.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string_view>
#include <tuple>
#include <utility>

#include "Apps/Import/Geometry/Space.hpp"
#include "Apps/Import/IdMap.hpp"

namespace orivanta::importer {

namespace {

constexpr double samePlace = 0.05;  // meters

// The nodes of a storey by identifier.
using Positions = IdMap<Point>;

Positions positionsOn(const Building& building, double level) {
  Positions positions;
  for (const SourceNode& node : building.sourceNodes)
    if (node.spot.level == level) positions.emplace(node.id, node.spot.position);
  return positions;
}

// Positions on one storey between which connectors run.
class ConnectorPairs {
 public:
  ConnectorPairs(const Building& building, double level) {
    for (std::size_t i = 0; i < building.connectors.size(); ++i)
      for (const Stop& stop : building.connectors[i].stops)
        if (stop.spot.level == level) connectorsAt_[key(stop.spot.position)].insert(i);
  }
  bool contains(Point from, Point to) const {
    const auto first = connectorsAt_.find(key(from));
    const auto second = connectorsAt_.find(key(to));
    return first != second && first != connectorsAt_.end() && second != connectorsAt_.end() &&
           std::any_of(first->second.begin(), first->second.end(),
                       [&](std::size_t connector) { return second->second.contains(connector); });
  }

 private:
  using Key = std::pair<long, long>;
  static Key key(Point point) {
    return {std::lround(point.x / samePlace), std::lround(point.y / samePlace)};
  }
  std::map<Key, std::set<std::size_t>> connectorsAt_;
};

// Adds the nodes at which connectors stop, even if no line leads there.
template <typename Add>
void addStopNodes(const Building& building, double level, const Positions& positions,
                  const Add& add) {
  std::vector<std::string_view> ids;
  ids.reserve(positions.size());
  for (const auto& [id, position] : positions) ids.push_back(id);
  std::sort(ids.begin(), ids.end());
  std::vector<Segment> places;
  places.reserve(ids.size());
  for (const std::string_view id : ids) places.push_back({positions.at(id), positions.at(id)});
  const SegmentGrid grid(std::move(places), 0.0);
  for (const Connector& connector : building.connectors)
    for (const Stop& stop : connector.stops) {
      if (stop.spot.level != level) continue;
      const std::size_t i = grid.nearest(stop.spot.position, samePlace);
      if (i != SegmentGrid::none) add(ids[i], grid.segments()[i].a);
    }
}

bool isWalked(LinkKind kind) {
  return kind == LinkKind::walk || kind == LinkKind::ramp || kind == LinkKind::movingWalkway;
}

}  // namespace

bool usesSourceLines(const Building& building, double level, NetworkChoice choice) {
  if (choice == NetworkChoice::derive) return false;
  if (choice == NetworkChoice::source) return true;
  const Positions positions = positionsOn(building, level);
  return std::any_of(
      building.sourceLinks.begin(), building.sourceLinks.end(), [&](const SourceLink& link) {
        return isWalked(link.kind) && positions.contains(link.from) && positions.contains(link.to);
      });
}

SourceLines::SourceLines(const Building& building, double level, Draft& draft) {
  const Positions positions = positionsOn(building, level);
  const ConnectorPairs pairs(building, level);
  IdMap<std::uint32_t> nodes;
  const auto nodeOf = [&](std::string_view id, Point position) {
    const auto [node, isNew] = nodes.emplace(id, 0);
    if (isNew)
      node->second =
          draft.addNode({position, NodeKind::way, std::string(id), {}, 0.0, 0.0, 0.0, {}});
    return node->second;
  };
  for (const SourceLink& link : building.sourceLinks) {
    if (!isWalked(link.kind)) continue;
    const auto from = positions.find(link.from);
    if (from == positions.end()) continue;
    const auto to = positions.find(link.to);
    if (to == positions.end() || from == to) continue;
    if (link.kind != LinkKind::walk && pairs.contains(from->second, to->second)) continue;
    std::uint32_t first = nodeOf(link.from, from->second);
    std::uint32_t second = nodeOf(link.to, to->second);
    if (link.direction == Direction::backward) std::swap(first, second);
    const bool oneWay =
        link.direction == Direction::forward || link.direction == Direction::backward;
    draft.edges.push_back({first, second, oneWay, false, false});
  }
  addStopNodes(building, level, positions, nodeOf);
  // By identifier, so that the order in the source does not matter.
  std::vector<std::pair<std::string_view, std::uint32_t>> sorted(nodes.begin(), nodes.end());
  std::sort(sorted.begin(), sorted.end());
  std::vector<Segment> places;
  places.reserve(sorted.size());
  indices_.reserve(sorted.size());
  for (const auto& [id, index] : sorted) {
    indices_.push_back(index);
    places.push_back({draft.nodes[index].position, draft.nodes[index].position});
  }
  grid_ = std::make_unique<SegmentGrid>(std::move(places), 0.0);
}

namespace {

// The distance to the nearest wall.
double clearanceIn(const Area& room, Point point) {
  double nearest = std::numeric_limits<double>::infinity();
  for (const Segment& border : bordersOf(room.shape))
    nearest = std::min(nearest, package::distanceToSegment(border.a, border.b, point));
  return nearest;
}

}  // namespace

std::set<std::string> SourceLines::claimInsides(const std::vector<const Door*>& doors, Rooms& rooms,
                                                Draft& draft) const {
  std::vector<Segment> places;
  places.reserve(doors.size());
  for (const Door* door : doors) places.push_back({door->position, door->position});
  const SegmentGrid grid(std::move(places), 0.0);
  const auto isAtDoor = [&](const Area& room, Point point) {
    constexpr double near = 0.5;  // meters
    bool found = false;
    grid.eachNear(point, near, [&](std::size_t i) {
      const std::vector<std::string>& areas = doors[i]->areas;
      found = found || (package::distance(doors[i]->position, point) <= near &&
                        std::find(areas.begin(), areas.end(), room.id) != areas.end());
    });
    return found;
  };
  std::map<std::string, std::tuple<double, std::uint32_t, const Area*>> best;  // by room
  for (const std::uint32_t index : indices_) {
    const DraftNode& node = draft.nodes[index];
    const Area* room = rooms.at(node.position);
    if (room == nullptr || node.kind != NodeKind::way || isAtDoor(*room, node.position)) continue;
    const double clearance = clearanceIn(*room, node.position);
    const auto [entry, isNew] = best.try_emplace(room->id, clearance, index, room);
    if (!isNew && clearance > std::get<double>(entry->second))
      entry->second = {clearance, index, room};
  }
  std::set<std::string> claimed;
  for (const auto& [id, chosen] : best) {
    const auto& [clearance, index, room] = chosen;
    if (!rooms.setInside(*room, index)) continue;
    draft.nodes[index].kind = NodeKind::inside;
    draft.nodes[index].of = id;
    claimed.insert(id);
  }
  return claimed;
}

std::optional<std::uint32_t> SourceLines::nodeAt(Point point, double within) const {
  const std::size_t i = grid_->nearest(point, within);
  if (i == SegmentGrid::none) return {};
  return indices_[i];
}

std::optional<std::uint32_t> SourceLines::freeNodeAt(const Draft& draft, Point point,
                                                     double within) const {
  std::optional<std::uint32_t> nearest;
  double best = within;
  grid_->eachNear(point, within, [&](std::size_t i) {
    const double distance = package::distance(draft.nodes[indices_[i]].position, point);
    if (draft.nodes[indices_[i]].kind != NodeKind::way || distance > best) return;
    if (nearest && distance == best && *nearest <= indices_[i]) return;
    best = distance;
    nearest = indices_[i];
  });
  return nearest;
}

}  // namespace orivanta::importer
