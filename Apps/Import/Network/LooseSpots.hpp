// Places that no line of the network reaches by itself.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Network/Draft.hpp"
#include "Apps/Import/Network/SourceLines.hpp"

namespace orivanta::importer {

/// Joins the spots of places without lines with the nearest node of the source's network, at most
/// `reach` meters away: places in rooms of which no way leads to them, such as a ticket gate in the
/// door of a room.
void joinSpotsToSource(const SourceLines& source, double reach, Draft& draft);

/// Joins the spots of places without lines with the stop of a connector in which or beside which
/// they lie: nothing is drawn around the head of stairs that lead outdoors. `reach` is how far
/// beside, in meters.
void joinSpotsToStops(const Building& building, double level, double reach, Draft& draft);

}  // namespace orivanta::importer
