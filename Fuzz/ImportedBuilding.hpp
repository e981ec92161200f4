// Reads the input as a source of a building, arranges its storeys, and checks what the stages after
// that rely on.
#pragma once

#include <cmath>
#include <set>
#include <string>
#include <string_view>

#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/SourceError.hpp"
#include "Apps/Import/Stages.hpp"
#include "Fuzz/Fuzzer.hpp"

namespace orivanta::importer {

inline void requireFinite(Point point) {
  ORIVANTA_REQUIRE(std::isfinite(point.x) && std::isfinite(point.y));
}

inline void requireStoreys(const Building& building) {
  std::set<double> storeys;
  for (const Storey& storey : building.storeys) {
    ORIVANTA_REQUIRE(storeys.insert(storey.ordinal).second && !storey.id.empty());
    ORIVANTA_REQUIRE(storey.elevation && !storey.names.name.empty() && !storey.shortName.empty());
  }
  for (const Area& area : building.areas) ORIVANTA_REQUIRE(storeys.contains(area.level));
  for (const Door& door : building.doors) ORIVANTA_REQUIRE(storeys.contains(door.level));
  for (const Line& line : building.lines) {
    ORIVANTA_REQUIRE(!line.levels.empty());
    for (const double level : line.levels) ORIVANTA_REQUIRE(storeys.contains(level));
    ORIVANTA_REQUIRE(line.pointLevels.empty() || line.pointLevels.size() == line.points.size());
  }
  for (const Place& place : building.places)
    for (const Spot& spot : place.spots) ORIVANTA_REQUIRE(storeys.contains(spot.level));
}

inline void requireIds(const Building& building) {
  std::set<std::string> areas;
  for (const Area& area : building.areas) ORIVANTA_REQUIRE(areas.insert(area.id).second);
  for (const Door& door : building.doors)
    for (const std::string& area : door.areas) ORIVANTA_REQUIRE(areas.contains(area));
  for (const Place& place : building.places)
    for (const std::string& area : place.areas) ORIVANTA_REQUIRE(areas.contains(area));
  std::set<std::string> nodes;
  for (const SourceNode& node : building.sourceNodes)
    ORIVANTA_REQUIRE(nodes.insert(node.id).second);
  for (const SourceLink& link : building.sourceLinks)
    ORIVANTA_REQUIRE(nodes.contains(link.from) && nodes.contains(link.to));
}

/// Sources that the reader refuses pass.
inline void checkSource(std::string_view input, Format format) {
  Options options;
  options.limits.vertices = 20'000;
  options.limits.bytes = 1U << 20U;
  options.network = NetworkChoice::source;
  Findings findings;
  try {
    Building building = readBuilding({{"fuzz", std::string(input)}}, format, options, findings);
    for (const Area& area : building.areas)
      for (const Polygon& polygon : area.shape)
        for (const Point point : polygon.outer) requireFinite(point);
    for (const Door& door : building.doors) requireFinite(door.position);
    requireIds(building);
    arrangeStoreys(building, options, findings);
    requireStoreys(building);
    requireIds(building);
  } catch (const SourceError& error) {
    ORIVANTA_REQUIRE(*error.what() != '\0');
  }
}

}  // namespace orivanta::importer
