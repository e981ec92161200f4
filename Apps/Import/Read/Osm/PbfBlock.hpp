// Reads the objects of one block of an .osm.pbf file.
#pragma once

#include <string_view>

#include "Apps/Import/Read/Osm/OsmData.hpp"

namespace orivanta::importer {

/// Adds the objects of an unpacked OSMData block. Throws `protozero::exception` if it is damaged;
/// the objects before the damage have then been added.
void addPbfBlock(std::string_view bytes, OsmData& data);

}  // namespace orivanta::importer
