// Reads the geometry of a GeoJSON feature.
#pragma once

#include <boost/json/value.hpp>
#include <cstddef>
#include <string>

#include "Apps/Import/Read/GeoJson.hpp"

namespace orivanta::importer {

/// Appends the parts of a GeoJSON geometry, which may be null, to `geometry`, and adds the number
/// of positions to `vertices`. Returns what is wrong with it, as a part of a sentence; empty if it
/// is valid.
std::string readGeometry(const boost::json::value& value, GeoGeometry& geometry,
                         std::size_t& vertices);

}  // namespace orivanta::importer
