#include "Apps/Import/Connectors/FromLines.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "Apps/Import/Connectors/StatedLevels.hpp"
#include "Apps/Import/Connectors/Stops.hpp"

namespace orivanta::importer {

namespace {

std::optional<ConnectorKind> kindOf(const Line& line) {
  switch (line.kind) {
    case LineKind::steps:
      return ConnectorKind::stairs;
    case LineKind::escalator:
      return ConnectorKind::escalator;
    case LineKind::movingWalkway:
      return ConnectorKind::movingWalkway;
    case LineKind::ramp:
      // A ramp on one storey is part of the walkable space.
      return line.levels.size() >= 2 ? std::optional(ConnectorKind::ramp) : std::nullopt;
    default:
      return std::nullopt;
  }
}

Stop stopAt(double level, Point position) {
  Stop stop;
  stop.spot = {level, position};
  return stop;
}

// Whether the first point lies on the lowest storey.
bool startsBelow(const Line& line, const Surroundings& surroundings) {
  if (line.pointLevels.size() == line.points.size() &&
      line.pointLevels.front() != line.pointLevels.back())
    return line.pointLevels.front() < line.pointLevels.back();
  const double low = line.levels.front();
  const double high = line.levels.back();
  const Point first = line.points.front();
  const Point last = line.points.back();
  return surroundings.distance(low, first) + surroundings.distance(high, last) <=
         surroundings.distance(low, last) + surroundings.distance(high, first) + 1e-6;
}

}  // namespace

std::string_view wordOf(ConnectorKind kind) {
  switch (kind) {
    case ConnectorKind::elevator:
      return "elevator";
    case ConnectorKind::escalator:
      return "escalator";
    case ConnectorKind::stairs:
      return "stairs";
    case ConnectorKind::ramp:
      return "ramp";
    case ConnectorKind::movingWalkway:
      break;
  }
  return "walkway";
}

std::string_view wordFor(ConnectorKind kind) {
  return kind == ConnectorKind::movingWalkway ? "moving walkway" : wordOf(kind);
}

std::optional<Connector> connectorOf(const Line& line, const Surroundings& surroundings,
                                     Findings& findings) {
  const auto kind = kindOf(line);
  if (!kind || line.points.size() < 2 || line.levels.empty() || line.access == Access::nobody)
    return std::nullopt;
  Connector connector;
  connector.id = fmt::format("{}-{}", wordOf(*kind), line.id);
  connector.source = line.source.empty() ? line.id : line.source;
  connector.kind = *kind;
  connector.names = line.names;
  connector.access = line.access;
  connector.accessible = line.wheelchair == Wheelchair::yes ||
                         ((*kind == ConnectorKind::ramp || *kind == ConnectorKind::movingWalkway) &&
                          line.wheelchair != Wheelchair::no);
  bool upward = line.levels.size() < 2 || startsBelow(line, surroundings);
  const Point bottom = upward ? line.points.front() : line.points.back();
  const Point top = upward ? line.points.back() : line.points.front();
  if (line.levels.size() < 2) {
    connector.stops = {stopAt(line.levels.front(), bottom), stopAt(line.levels.front(), top)};
  } else {
    connector.stops.push_back(stopAt(line.levels.front(), bottom));
    for (std::size_t i = 1; i + 1 < line.levels.size(); ++i)
      connector.stops.push_back(stopAt(
          line.levels[i],
          surroundings.distance(line.levels[i], bottom) < surroundings.distance(line.levels[i], top)
              ? bottom
              : top));
    connector.stops.push_back(stopAt(line.levels.back(), top));
  }
  if (line.pointIds.size() == line.points.size()) {
    const auto settle = [&](Stop& stop, const std::string& point) {
      stop.spot.level =
          settledLevel({*kind, connector.source, point, stop.spot}, surroundings, findings);
    };
    settle(connector.stops.front(), upward ? line.pointIds.front() : line.pointIds.back());
    settle(connector.stops.back(), upward ? line.pointIds.back() : line.pointIds.front());
    if (connector.stops.front().spot.level > connector.stops.back().spot.level) {
      std::reverse(connector.stops.begin(), connector.stops.end());
      upward = !upward;
    }
  }
  Direction direction = line.direction;
  if (!upward && direction == Direction::forward)
    direction = Direction::backward;
  else if (!upward && direction == Direction::backward)
    direction = Direction::forward;
  applyDirection(connector.stops, direction);
  connector.directionKnown =
      direction != Direction::unknown ||
      (*kind != ConnectorKind::escalator && *kind != ConnectorKind::movingWalkway);
  return connector;
}

}  // namespace orivanta::importer
