// Joins the holes of a polygon to its outer ring, because faces of models have only one ring.
#pragma once

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// One ring that covers the polygon without its holes: from the outer ring, a bridge leads into
/// each hole, around it and back. The ring touches itself along the bridges, but never crosses
/// itself. A hole that no bridge can reach is left out.
Outline bridged(const Polygon& polygon);

}  // namespace orivanta::importer
