#include "Apps/Import/Report/ReviewPlaces.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "Apps/Import/IdMap.hpp"
#include "Apps/Import/Report/Summary.hpp"

namespace orivanta::importer {

namespace {

struct Unreached {
  const Place* place;
  Point position;
};

// The areas and places with a node in the main part of the network.
IdSet reachedIn(const Building& building, const NetworkParts& parts) {
  IdSet reached;
  for (std::size_t i = 0; i < parts.partOf.size(); ++i) {
    const Node& node = building.network.nodes[i];
    if (parts.partOf[i] == 0 && (node.kind == NodeKind::inside || node.kind == NodeKind::spot))
      reached.insert(node.of);
  }
  return reached;
}

std::string storeyName(const Building& building, double level) {
  for (const Storey& storey : building.storeys)
    if (storey.ordinal == level) {
      const std::string& name = storey.names.name.empty() ? storey.shortName : storey.names.name;
      if (!name.empty()) return name;
    }
  return fmt::format("level {}", level);
}

std::string listOf(const std::vector<Unreached>& places) {
  constexpr std::size_t listed = 5;
  std::string names;
  for (std::size_t i = 0; i < std::min(places.size(), listed); ++i)
    names += fmt::format("{}\"{}\"", i == 0 ? "" : ", ", places[i].place->names.name);
  if (places.size() > listed) names += fmt::format(" and {} more", places.size() - listed);
  return names;
}

}  // namespace

void reviewPlaces(const Building& building, const NetworkParts& parts, Findings& findings) {
  if (parts.rooms.empty() || parts.rooms.front().empty()) return;
  const IdSet reached = reachedIn(building, parts);
  const auto isReached = [&](const std::string& id) { return reached.contains(id); };
  IdMap<const Area*> areas;
  for (const Area& area : building.areas) areas.emplace(area.id, &area);
  std::map<double, std::vector<Unreached>> byLevel;
  for (const Place& place : building.places) {
    if (isReached(place.id) || std::any_of(place.areas.begin(), place.areas.end(), isReached))
      continue;
    const auto found = place.areas.empty() ? areas.end() : areas.find(place.areas.front());
    if (found != areas.end()) {
      const Area& area = *found->second;
      // Rooms have findings of their own, and connectors are no destinations.
      if (area.kind == AreaKind::room || isConnector(area.kind) || area.shape.empty() ||
          area.shape.front().outer.empty())
        continue;
      byLevel[area.level].push_back({&place, area.shape.front().outer.front()});
    } else if (!place.spots.empty()) {
      byLevel[place.spots.front().level].push_back({&place, place.spots.front().position});
    }
  }
  for (const auto& [level, places] : byLevel)
    findings.add({.rule = "unreachable",
                  .source = places.front().place->source,
                  .level = level,
                  .position = places.front().position,
                  .message = fmt::format(
                      "{} on {} cannot be reached from the rest of the building: {}.",
                      places.size() == 1 ? "One place" : fmt::format("{} places", places.size()),
                      storeyName(building, level), listOf(places)),
                  .effect = "No route leads there.",
                  .advice = "Draw the way that joins it with the rest."});
}

}  // namespace orivanta::importer
