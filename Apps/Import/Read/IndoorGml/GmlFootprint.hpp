// Finds what a solid looks like from above.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

struct GmlExtent {
  double lowest = 0.0;
  double highest = 0.0;
};

/// The heights of the faces; zero if there are none.
GmlExtent extentOf(const std::vector<GmlFace>& faces);

/// The lowest flat faces of a solid. Without any, all faces as seen from above, which may overlap;
/// if all are upright, the convex hull. In the units of the document.
std::vector<Polygon> footprintOf(const std::vector<GmlFace>& faces);

/// The longest horizontal distance between two points of an upright face, from end to end. Empty if
/// there is none.
std::vector<Point> baseLineOf(const std::vector<GmlFace>& faces);

}  // namespace orivanta::importer
