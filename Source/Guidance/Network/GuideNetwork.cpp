#include "Source/Guidance/Network/GuideNetwork.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Sorting.hpp"
#include "Source/Graph/SpatialOrder.hpp"
#include "Source/Guidance/Network/ConnectorSign.hpp"
#include "Source/Guidance/Network/Rooms.hpp"
#include "Source/Guidance/Network/TravelTime.hpp"
#include "Source/Guidance/Scale.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta::guidance {

namespace {

// The limit of NavigationGraph, for the same reason.
constexpr std::size_t mostRides = std::size_t{1} << 24U;

double weightOr(double weight, double otherwise) {
  return std::isfinite(weight) && weight >= 0.0 ? weight : otherwise;
}

bool hasUsablePlace(const Node& node) {
  return GuideNetwork::isUsable(node.x) && GuideNetwork::isUsable(node.y) &&
         GuideNetwork::isUsable(node.z);
}

}  // namespace

GuideNetwork::GuideNetwork(const Venue& venue)
    : hasScale_(unitsPerMeterOf(venue).has_value()),
      unitsPerMeter_(unitsPerMeterOf(venue).value_or(1.0)) {
  addNodes(venue);
  addFloors(venue);
  vertices_.reserve(nodes_.size());
  for (const auto& node : nodes_)
    vertices_.push_back({node->x, node->y, 0, 0, floorOf(node->map), none});
  for (const auto& node : nodes_) z_.push_back(node->z);
  addWalkingArcs(venue);
  addConnectors(venue);
  sortArcs();
  const auto rooms = roomsOf(venue, numbers_);
  for (Index index = 0; index < size(); ++index) vertices_[index].room = rooms[index];
}

void GuideNetwork::addNodes(const Venue& venue) {
  NodeList usable;
  std::unordered_set<const Node*> seen;
  const auto add = [&](const std::shared_ptr<Node>& node) {
    if (node && hasUsablePlace(*node) && seen.insert(node.get()).second) usable.push_back(node);
  };
  for (const auto& node : *venue.nodes) add(node);
  if (venue.vortices)
    for (const auto& vortex : *venue.vortices)
      for (const auto& node : vortex->nodes) add(node);
  nodes_ = inSpatialOrder(usable);
  numbers_.reserve(nodes_.size());
  for (Index index = 0; index < nodes_.size(); ++index) numbers_[nodes_[index].get()] = index;
}

void GuideNetwork::addFloors(const Venue& venue) {
  if (venue.maps)
    for (const auto& map : *venue.maps) floorOf(map);
  for (const auto& node : nodes_) floorOf(node->map);
}

GuideNetwork::Index GuideNetwork::floorOf(const std::shared_ptr<Map>& map) {
  const auto [entry, isNew] =
      floorNumbers_.try_emplace(map.get(), static_cast<Index>(floors_.size()));
  if (isNew)
    floors_.push_back({map, map && map->_data["outdoor"].bool_().value_or(false),
                       map && isUsable(map->elevation) ? map->elevation : 0.0});
  return entry->second;
}

std::optional<GuideNetwork::Index> GuideNetwork::find(const Node* node) const {
  const auto entry = numbers_.find(node);
  if (entry == numbers_.end()) return std::nullopt;
  return entry->second;
}

double GuideNetwork::height(Index vertex) const {
  return (floors_[vertices_[vertex].floor].elevation + z_[vertex]) / unitsPerMeter_;
}

void GuideNetwork::addWalkingArcs(const Venue& venue) {
  for (Index origin = 0; origin < size(); ++origin)
    for (const Edge& edge : (*venue.navigationGraph)[*nodes_[origin]]) {
      const auto target = find(edge.node().get());
      if (edge.vortex() || !target || *target == origin) continue;
      const double plan = std::hypot(vertices_[origin].x - vertices_[*target].x,
                                     vertices_[origin].y - vertices_[*target].y);
      const double meters = edge.distance() / unitsPerMeter_;
      const double weighted = meters * weightOr(edge.node()->multiplierWeight, 1.0) +
                              weightOr(edge.node()->constantWeight, 0.0) / unitsPerMeter_;
      arcs_.push_back({origin, *target, none, plan, meters, weighted, 0.0});
    }
}

void GuideNetwork::addConnectors(const Venue& venue) {
  if (!venue.vortices) return;
  const ConnectorSigns signs(venue);
  std::size_t rides = 0;
  for (const auto& vortex : *venue.vortices) {
    std::vector<Index> stops;
    for (const auto& node : vortex->nodes)
      if (const auto index = find(node.get())) stops.push_back(*index);
    std::sort(stops.begin(), stops.end());
    stops.erase(std::unique(stops.begin(), stops.end()), stops.end());
    connectors_.push_back({vortex,
                           connectorKindOf(vortex->type.value_or("")),
                           vortex->accessible,
                           signs.signOf(*vortex),
                           {}});
    if (!stops.empty() && stops.size() > (mostRides - rides) / stops.size()) {
      foundation::diagnostic(
          fmt::format("too many rides: connector {} is left out", vortex->id.value_or("")));
      continue;
    }
    rides += stops.size() * stops.size();
    for (const Index origin : stops)
      for (const Index target : stops)
        if (origin != target) addRide(origin, target);
  }
}

void GuideNetwork::addRide(Index origin, Index target) {
  const double plan = std::hypot(vertices_[origin].x - vertices_[target].x,
                                 vertices_[origin].y - vertices_[target].y);
  arcs_.push_back({origin, target, static_cast<Index>(connectors_.size() - 1), plan, 0.0, 0.0,
                   height(target) - height(origin)});
}

void GuideNetwork::sortArcs() {
  foundation::stableSort(arcs_.begin(), arcs_.end(), [](const Arc& left, const Arc& right) {
    return left.origin < right.origin;
  });
  arcs_.shrink_to_fit();
  Index arc = 0;
  for (Index index = 0; index < size(); ++index) {
    vertices_[index].firstArc = arc;
    while (arc < arcs_.size() && arcs_[arc].origin == index) ++arc;
    vertices_[index].endArc = arc;
  }
  firstInto_.assign(size() + 1U, 0);
  for (const Arc& each : arcs_) {
    targets_.push_back(each.target);
    ++firstInto_[each.target + 1U];
  }
  for (Index index = 0; index < size(); ++index) firstInto_[index + 1U] += firstInto_[index];
  arcsInto_.resize(arcs_.size());
  std::vector<Index> next = firstInto_;
  for (arc = 0; arc < arcs_.size(); ++arc) {
    arcsInto_[next[arcs_[arc].target]++] = arc;
    if (arcs_[arc].connector != none) connectors_[arcs_[arc].connector].arcs.push_back(arc);
  }
}

}  // namespace orivanta::guidance
