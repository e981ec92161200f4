// The parts of a .shp file: its header, the index of its records, and the shapes in them.
#pragma once

#include <shapefil.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "Apps/Import/Read/GeoJson.hpp"

namespace orivanta::importer {

constexpr std::size_t shapefileHeader = 100;  ///< bytes

/// The size of a .shp file in bytes as its header states it. The header must be complete.
std::size_t statedSize(std::string_view shp);

/// The bytes of an .shx file, made from the records themselves: the file may be missing or may not
/// fit.
std::string shapefileIndex(std::string_view shp);

/// The positions of a shape as they are. Empty for shapes that are neither points, lines nor
/// polygons.
GeoGeometry shapefileGeometry(const SHPObject& shape);

}  // namespace orivanta::importer
