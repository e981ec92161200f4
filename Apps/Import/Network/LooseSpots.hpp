// Places that no line of the network reaches by itself.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Network/Draft.hpp"

namespace orivanta::importer {

/// Joins the spots of places without lines with the stop of a connector in which or beside which
/// they lie: nothing is drawn around the head of stairs that lead outdoors. `reach` is how far
/// beside, in meters.
void joinSpotsToStops(const Building& building, double level, double reach, Draft& draft);

}  // namespace orivanta::importer
