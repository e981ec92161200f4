#include "Source/Guidance/Network/StopResolver.hpp"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "Platform/Foundation/Sorting.hpp"
#include "Source/Guidance/Network/Snapping.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

namespace orivanta::guidance {

namespace {

using Kind = Problem::Kind;
using Place = PlaceTable::Place;

constexpr long long longMinutes = 60;

ResolvedStop failed(Kind kind) { return {{}, {}, {}, kind}; }

void sortUnique(std::vector<GuideNetwork::Index>& numbers) {
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
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
        else if constexpr (std::is_same_v<Type, PlaceList>)
          return atAny(data_.places.find(place), isStart);
        else if constexpr (std::is_same_v<Type, std::shared_ptr<Category>>)
          return atAny(data_.places.placesOf(place.get()), isStart);
        else
          return atPlace(place, isStart);
      },
      stop);
  if (!resolved.problem && resolved.ends.vertices.empty()) resolved.problem = Kind::noNodes;
  addRooms(resolved.ends);
  for (const Place* place : resolved.places)
    for (const auto vertex : place->nodes) resolved.nodes.emplace_back(vertex, place);
  foundation::stableSort(
      resolved.nodes.begin(), resolved.nodes.end(),
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

ResolvedStop StopResolver::atAny(const std::optional<PlaceTable::Places>& places,
                                 bool isStart) const {
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
  const auto snapped = snapTo(data_, position);
  if (!snapped) {
    const auto floors = data_.network.floors();
    const bool known = std::any_of(floors.begin(), floors.end(),
                                   [&](const auto& floor) { return floor.map == position.map; });
    return failed(known ? Kind::noNodes : Kind::unknownPlace);
  }
  ResolvedStop stop;
  stop.ends.number = data_.network.size() + static_cast<GuideNetwork::Index>(index);
  stop.ends.vertices.push_back(stop.ends.number);
  stop.ends.node = nodeAt(*snapped, data_.network);
  stop.ends.splits = splitsAt(*snapped, data_.network);
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

}  // namespace orivanta::guidance
