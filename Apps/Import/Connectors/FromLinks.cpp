#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/Connectors/Pairing.hpp"
#include "Apps/Import/Geometry/AreaIndex.hpp"
#include "Apps/Import/IdMap.hpp"

namespace orivanta::importer {

namespace {

std::optional<ConnectorKind> connectorKindOf(LinkKind kind) {
  switch (kind) {
    case LinkKind::elevator:
      return ConnectorKind::elevator;
    case LinkKind::escalator:
      return ConnectorKind::escalator;
    case LinkKind::stairs:
      return ConnectorKind::stairs;
    case LinkKind::ramp:
      return ConnectorKind::ramp;
    case LinkKind::movingWalkway:
      return ConnectorKind::movingWalkway;
    case LinkKind::walk:
      break;
  }
  return std::nullopt;
}

AreaKind areaKindOf(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::elevator:
      return AreaKind::elevator;
    case ConnectorKind::escalator:
      return AreaKind::escalator;
    case ConnectorKind::stairs:
      return AreaKind::stairs;
    case ConnectorKind::ramp:
      return AreaKind::ramp;
    case ConnectorKind::movingWalkway:
      break;
  }
  return AreaKind::movingWalkway;
}

// The links of one kind that touch each other, and what is known of each of their nodes.
class LinkGroups {
 public:
  explicit LinkGroups(const Building& building) {
    nodes_.reserve(building.sourceNodes.size());
    for (const SourceNode& node : building.sourceNodes) nodes_.emplace(node.id, &node);
    for (const Storey& storey : building.storeys)
      elevations_.emplace(storey.ordinal, storey.elevation.value_or(storey.ordinal * 4.0));
    for (const SourceLink& link : building.sourceLinks) {
      if (!nodes_.contains(link.from) || !nodes_.contains(link.to)) continue;
      if (kindOf(link)) {
        links_.push_back(&link);
      } else {
        walked_.insert(link.from);
        walked_.insert(link.to);
      }
    }
  }

  std::vector<Connector> connectors() const {
    DisjointSets sets(links_.size());
    std::map<std::pair<std::string_view, ConnectorKind>, std::size_t> at;
    for (std::size_t i = 0; i < links_.size(); ++i)
      for (const std::string* node : {&links_[i]->from, &links_[i]->to}) {
        const auto [entry, added] =
            at.emplace(std::pair(std::string_view(*node), *kindOf(*links_[i])), i);
        if (!added) sets.join(entry->second, i);
      }
    std::vector<Connector> made;
    for (const std::vector<std::size_t>& set : sets.all()) made.push_back(connectorOf(set));
    return made;
  }

 private:
  struct Use {
    int links = 0;
    bool leavesFrom = false;  // a link can be entered here
    bool arrivesAt = false;
  };

  // Ways between storeys at different heights are ramps; level ways are no connectors.
  std::optional<ConnectorKind> kindOf(const SourceLink& link) const {
    const double from = nodes_.at(link.from)->spot.level;
    const double to = nodes_.at(link.to)->spot.level;
    const bool walked = link.kind == LinkKind::walk || link.kind == LinkKind::ramp;
    if (walked)
      return from != to && std::abs(elevationAt(from) - elevationAt(to)) >= 0.5
                 ? std::optional(ConnectorKind::ramp)
                 : std::nullopt;
    if (link.kind == LinkKind::movingWalkway && from == to && link.direction == Direction::both)
      return std::nullopt;
    return connectorKindOf(link.kind);
  }

  double elevationAt(double level) const {
    const auto found = elevations_.find(level);
    return found == elevations_.end() ? level * 4.0 : found->second;
  }

  Connector connectorOf(const std::vector<std::size_t>& set) const {
    const SourceLink& first = *links_[set.front()];
    Connector connector;
    connector.kind = *kindOf(first);
    connector.id = fmt::format("{}-{}", wordOf(connector.kind), first.id);
    connector.source = first.id;
    bool suitable = false;
    bool unsuitable = false;
    std::map<std::string_view, Use> uses;
    for (const std::size_t i : set) {
      const SourceLink& link = *links_[i];
      suitable = suitable || link.wheelchair == Wheelchair::yes;
      unsuitable = unsuitable || link.wheelchair == Wheelchair::no;
      const bool forward = link.direction != Direction::backward;
      const bool backward = link.direction != Direction::forward;
      Use& from = uses[link.from];
      Use& to = uses[link.to];
      ++from.links;
      ++to.links;
      from.leavesFrom = from.leavesFrom || forward;
      from.arrivesAt = from.arrivesAt || backward;
      to.leavesFrom = to.leavesFrom || backward;
      to.arrivesAt = to.arrivesAt || forward;
      if (link.direction == Direction::unknown && connector.kind == ConnectorKind::escalator)
        connector.directionKnown = false;
    }
    const bool stepFree =
        connector.kind != ConnectorKind::stairs && connector.kind != ConnectorKind::escalator;
    connector.accessible = stepFree && (suitable || !unsuitable);
    for (const auto& [id, use] : uses) {
      if (use.links > 1 && !walked_.contains(id)) continue;
      Stop stop;
      stop.spot = nodes_.at(id)->spot;
      stop.enter = use.leavesFrom;
      stop.leave = use.arrivesAt;
      connector.stops.push_back(stop);
    }
    std::stable_sort(connector.stops.begin(), connector.stops.end(),
                     [](const Stop& a, const Stop& b) { return a.spot.level < b.spot.level; });
    return connector;
  }

  IdMap<const SourceNode*> nodes_;
  std::map<double, double> elevations_;
  std::vector<const SourceLink*> links_;
  IdSet walked_;  // nodes with links that are walked
};

}  // namespace

std::vector<Connector> connectorsOfLinks(const Building& building) {
  std::vector<Connector> connectors = LinkGroups(building).connectors();
  constexpr double beside = 1.5;
  std::map<double, AreaIndex> indexes;
  for (Connector& connector : connectors)
    for (Stop& stop : connector.stops) {
      const AreaIndex& index =
          indexes
              .try_emplace(stop.spot.level, building, stop.spot.level,
                           [](const Area& area) { return pieceOf(area).has_value(); })
              .first->second;
      double nearest = beside;
      for (const Area* area : index.near(stop.spot.position, beside)) {
        if (area->kind != areaKindOf(connector.kind)) continue;
        const double away = index.distance(*area, stop.spot.position, beside);
        if (away >= nearest) continue;
        nearest = away;
        stop.area = area->id;
      }
    }
  return connectors;
}

}  // namespace orivanta::importer
