// At which sides of a flight the edges of steps are drawn. A flight that leads to another storey
// shows them where it is entered on the storey of the drawing; one that joins two parts of its
// storey shows them at both ends.
#pragma once

#include <optional>

#include "Apps/Import/Connectors/Piece.hpp"

namespace orivanta::importer {

/// The middle of the outermost edge at a side. Nothing if none is drawn there.
std::optional<Point> stepsAt(const Piece& piece, Side side);

/// The side at which steps are drawn, if they are at one side only.
std::optional<Side> onlySideWithSteps(const Piece& piece);

/// Whether steps are drawn at two opposite sides.
bool hasStepsAcross(const Piece& piece);

}  // namespace orivanta::importer
