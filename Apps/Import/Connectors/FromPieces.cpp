#include "Apps/Import/Connectors/FromPieces.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Apps/Import/Connectors/FromLines.hpp"
#include "Apps/Import/Connectors/Stops.hpp"

namespace orivanta::importer {

Connector connectorOf(const std::vector<const Piece*>& members, const Surroundings& surroundings) {
  const Piece& first = *members.front();
  Connector connector;
  connector.kind = first.kind;
  connector.source = first.source;
  connector.id = fmt::format("{}-{}", wordOf(first.kind), first.source);
  Direction direction = Direction::unknown;
  bool suitable = false;
  bool unsuitable = false;
  for (const Piece* piece : members) {
    if (direction == Direction::unknown) direction = piece->direction;
    connector.access = std::max(connector.access, piece->access);
    suitable = suitable || piece->wheelchair == Wheelchair::yes;
    unsuitable = unsuitable || piece->wheelchair == Wheelchair::no;
  }
  const bool steps = first.kind == ConnectorKind::stairs || first.kind == ConnectorKind::escalator;
  connector.accessible = steps ? suitable && first.kind == ConnectorKind::stairs : !unsuitable;
  connector.stops =
      members.size() == 1 ? stopsOfSingle(first, surroundings) : stopsOf(members, surroundings);
  // What leads nowhere else may join parts of the storey that lie at different heights. Which of
  // them is higher is not known.
  if (first.kind == ConnectorKind::escalator && connector.stops.size() < 2)
    if (std::vector<Stop> stops = stopsOnStorey(first, surroundings); !stops.empty()) {
      connector.stops = std::move(stops);
      direction = Direction::unknown;
    }
  applyDirection(connector.stops, direction);
  connector.directionKnown =
      direction != Direction::unknown ||
      (first.kind != ConnectorKind::escalator && first.kind != ConnectorKind::movingWalkway);
  return connector;
}

}  // namespace orivanta::importer
