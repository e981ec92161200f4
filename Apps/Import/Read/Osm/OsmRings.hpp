// Joins the ways of a multipolygon to rings, and sorts rings into polygons with holes.
#pragma once

#include <cstddef>
#include <vector>

#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// Joins pieces at their ends. Closed pieces are rings already. Sets `open` to the number of pieces
/// that belong to no ring.
std::vector<OsmRing> joinedRings(std::vector<OsmRing> pieces, std::size_t& open);

/// Gives each inner ring to the smallest outer ring around it, and all rings their direction and
/// first position. Inner rings outside all outer ones are dropped, and so are rings without an
/// area.
std::vector<OsmPolygon> polygonsOf(std::vector<OsmRing> outer, const std::vector<OsmRing>& inner);

/// The ring from its smallest position, counterclockwise or clockwise. It remains closed.
OsmRing normalized(OsmRing ring, bool isCounterclockwise);

}  // namespace orivanta::importer
