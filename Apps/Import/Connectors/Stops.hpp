// Decides where connectors are boarded.
#pragma once

#include <vector>

#include "Apps/Import/Connectors/Piece.hpp"
#include "Apps/Import/Connectors/Surroundings.hpp"

namespace orivanta::importer {

/// The stops of pieces that belong together, which are ordered by storey. A piece without contact
/// has a stop at its point that is nearest to the space.
std::vector<Stop> stopsOf(const std::vector<const Piece*>& pieces,
                          const Surroundings& surroundings);

/// The stops of a piece without others: it leads to the storey above or below where it touches the
/// space there, or else, unless it is an escalator, from one side of its own storey to the other.
/// One stop if it leads nowhere.
std::vector<Stop> stopsOfSingle(const Piece& piece, const Surroundings& surroundings);

/// Whether steps are drawn at two opposite sides of a piece, at both of which people can board it.
bool joinsItsStorey(const Piece& piece, const Surroundings& surroundings);

/// Two stops on opposite sides of a piece, or on any two sides, where it touches the space of its
/// storey. Empty if it touches the space on fewer sides, and for escalators beside which people
/// walk along.
std::vector<Stop> stopsOnStorey(const Piece& piece, const Surroundings& surroundings);

/// Forbids to enter at the end and to leave at the start of what is used in one direction. Forward
/// is in the order of the stops.
void applyDirection(std::vector<Stop>& stops, Direction direction);

}  // namespace orivanta::importer
