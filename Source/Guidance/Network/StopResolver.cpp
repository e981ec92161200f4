#include "Source/Guidance/Network/StopResolver.hpp"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <utility>

#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

using Arc = GuideNetwork::Arc;
using Kind = Problem::Kind;
using Place = PlaceTable::Place;

constexpr long long longMinutes = 60;

ResolvedStop failed(Kind kind) { return {{}, {}, {}, kind}; }

void sortUnique(std::vector<GuideNetwork::Index>& numbers) {
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
}

// Returns a node for a position on an arc.
std::shared_ptr<Node> nodeAt(const Snap& snap, const GuideNetwork& network,
                             GuideNetwork::Index arc) {
  static const auto data = RawData::parse(R"({"id": "", "x": 0, "y": 0})");
  auto node = Node::make(*data);
  const Arc& along = network.arcs()[arc];
  node->map = network.map(along.origin);
  node->x = snap.x;
  node->y = snap.y;
  node->z = std::lerp(network.z(along.origin), network.z(along.target), snap.share);
  return node;
}

}  // namespace

PlaceTable::Places ResolvedStop::placesAt(GuideNetwork::Index vertex) const {
  PlaceTable::Places found;
  const auto first = std::partition_point(nodes.begin(), nodes.end(),
                                          [&](const auto& each) { return each.first < vertex; });
  for (auto entry = first; entry != nodes.end() && entry->first == vertex; ++entry)
    found.push_back(entry->second);
  return found;
}

StopResolver::StopResolver(const GuideData& data, const Closures& closures,
                           const std::optional<LocalTime>& departure)
    : data_(data), departure_(departure) {
  const auto places = data.places.closedPlaces(closures);
  closedPlaces_.insert(places.begin(), places.end());
  const auto nodes = data.places.closedNodes(closures);
  closedNodes_.insert(nodes.begin(), nodes.end());
}

ResolvedStop StopResolver::resolve(const Stop& stop, std::size_t index, bool isStart) const {
  ResolvedStop resolved = std::visit(
      [&](const auto& place) {
        using Type = std::decay_t<decltype(place)>;
        if constexpr (std::is_same_v<Type, Position>)
          return atPosition(place, index);
        else if constexpr (std::is_same_v<Type, std::shared_ptr<Node>>)
          return atNode(place, isStart);
        else if constexpr (std::is_same_v<Type, NodeList>)
          return atNodes(place, isStart);
        else if constexpr (std::is_same_v<Type, std::shared_ptr<Category>>)
          return inCategory(place, isStart);
        else
          return atPlace(place, isStart);
      },
      stop);
  if (!resolved.problem && resolved.ends.vertices.empty()) resolved.problem = Kind::noNodes;
  addRooms(resolved.ends);
  for (const Place* place : resolved.places)
    for (const auto vertex : place->nodes) resolved.nodes.emplace_back(vertex, place);
  std::stable_sort(resolved.nodes.begin(), resolved.nodes.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
  return resolved;
}

bool StopResolver::isClosedForLong(const Place& place) const {
  if (!departure_ || !place.isClosedAt(*departure_)) return false;
  const auto change = place.hours->nextChange(*departure_);
  return !change || *change > departure_->plusMinutes(longMinutes);
}

ResolvedStop StopResolver::atPlace(const std::shared_ptr<Location>& location, bool isStart) const {
  const auto* place = data_.places.find(location.get());
  if (place == nullptr) return failed(Kind::unknownPlace);
  if (!isStart && closedPlaces_.count(place) != 0) return failed(Kind::closed);
  ResolvedStop stop;
  stop.ends.vertices = place->nodes;
  stop.places.push_back(place);
  return stop;
}

ResolvedStop StopResolver::atNode(const std::shared_ptr<Node>& node, bool isStart) const {
  const auto index = data_.network.find(node.get());
  if (!index) return failed(Kind::unknownPlace);
  if (!isStart && closedNodes_.count(*index) != 0) return failed(Kind::closed);
  ResolvedStop stop;
  stop.ends.vertices.push_back(*index);
  return stop;
}

ResolvedStop StopResolver::atNodes(const NodeList& nodes, bool isStart) const {
  ResolvedStop stop;
  std::optional<Kind> problem;
  for (const auto& node : nodes) {
    const ResolvedStop one = atNode(node, isStart);
    if (one.problem) problem = one.problem;
    stop.ends.vertices.insert(stop.ends.vertices.end(), one.ends.vertices.begin(),
                              one.ends.vertices.end());
  }
  if (stop.ends.vertices.empty() && problem) return failed(*problem);
  sortUnique(stop.ends.vertices);
  return stop;
}

ResolvedStop StopResolver::inCategory(const std::shared_ptr<Category>& category,
                                      bool isStart) const {
  const auto places = data_.places.placesOf(category.get());
  if (!places) return failed(Kind::unknownPlace);
  ResolvedStop stop;
  bool anyClosed = false;
  for (const auto* place : *places) {
    if (place->nodes.empty()) continue;
    if (!isStart && (closedPlaces_.count(place) != 0 || isClosedForLong(*place))) {
      anyClosed = true;
      continue;
    }
    stop.places.push_back(place);
    stop.ends.vertices.insert(stop.ends.vertices.end(), place->nodes.begin(), place->nodes.end());
  }
  if (stop.places.empty() && anyClosed) return failed(Kind::closed);
  sortUnique(stop.ends.vertices);
  return stop;
}

ResolvedStop StopResolver::atPosition(const Position& position, std::size_t index) const {
  if (!position.map) return failed(Kind::unknownPlace);
  GuideNetwork::Index arc = 0;
  const auto snapped = snap(data_, position, &arc);
  if (!snapped) {
    const auto floors = data_.network.floors();
    const bool known = std::any_of(floors.begin(), floors.end(),
                                   [&](const auto& floor) { return floor.map == position.map; });
    return failed(known ? Kind::noNodes : Kind::unknownPlace);
  }
  ResolvedStop stop;
  stop.ends.number = data_.network.size() + static_cast<GuideNetwork::Index>(index);
  stop.ends.vertices.push_back(stop.ends.number);
  stop.ends.node = nodeAt(*snapped, data_.network, arc);
  const auto arcs = data_.network.arcs();
  const auto& along = arcs[arc];
  stop.ends.splits.push_back({arc, snapped->share});
  const auto& end = data_.network.vertex(along.target);
  for (GuideNetwork::Index back = end.firstArc; back != end.endArc; ++back)
    if (arcs[back].target == along.origin && arcs[back].connector == GuideNetwork::none) {
      stop.ends.splits.push_back({back, 1.0 - snapped->share});
      break;
    }
  return stop;
}

void StopResolver::addRooms(Ends& ends) const {
  const auto add = [&](GuideNetwork::Index vertex) {
    const auto room = data_.network.vertex(vertex).room;
    if (room != GuideNetwork::none) ends.rooms.push_back(room);
  };
  for (const auto vertex : ends.vertices)
    if (vertex < data_.network.size()) add(vertex);
  for (const auto& split : ends.splits) {
    add(data_.network.arcs()[split.arc].origin);
    add(data_.network.arcs()[split.arc].target);
  }
  sortUnique(ends.rooms);
}

std::optional<Snap> StopResolver::snap(const GuideData& data, const Position& position,
                                       GuideNetwork::Index* arc) {
  const auto nearest = data.edges.nearest(position.map.get(), position.x, position.y);
  if (!nearest) return std::nullopt;
  if (arc != nullptr) *arc = *nearest;
  const auto& along = data.network.arcs()[*nearest];
  const auto& from = data.network.vertex(along.origin);
  const auto& to = data.network.vertex(along.target);
  const double dx = to.x - from.x;
  const double dy = to.y - from.y;
  const double square = dx * dx + dy * dy;
  const double share =
      square > 0.0
          ? std::clamp(((position.x - from.x) * dx + (position.y - from.y) * dy) / square, 0.0, 1.0)
          : 0.0;
  Snap snap{data.network.node(along.origin),
            data.network.node(along.target),
            share,
            from.x + share * dx,
            from.y + share * dy,
            0.0};
  snap.distance = std::hypot(position.x - snap.x, position.y - snap.y);
  return snap;
}

}  // namespace orivanta::guidance
