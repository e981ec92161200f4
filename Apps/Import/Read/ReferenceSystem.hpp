// Understands the names of coordinate reference systems.
#pragma once

#include <string>

namespace orivanta::importer {

enum class CoordinateUnit { unknown, degrees, meters };

/// What the coordinates of a reference system are; unknown for one that is not supported.
CoordinateUnit supportedUnitOf(const std::string& crs);

/// What the coordinates of a reference system are. `crs` is a name such as
/// "urn:ogc:def:crs:EPSG::6677" or the text of a .prj file; an empty text is unknown. Throws
/// `SourceError` for a system whose coordinates are neither longitude and latitude nor meters on a
/// plane of true scale.
CoordinateUnit unitOf(const std::string& crs, const std::string& file);

}  // namespace orivanta::importer
