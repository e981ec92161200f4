// Faces of models have one ring each.
#pragma once

#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Outlines without holes that cover a valid polygon. A polygon with holes is cut through the
/// middle of its holes. Takes n log n time.
std::vector<Outline> facesOf(const Polygon& polygon);

}  // namespace orivanta::importer
