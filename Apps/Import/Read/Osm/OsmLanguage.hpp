// Guesses the language of names from tags.
#pragma once

#include <string>
#include <vector>

#include "Apps/Import/Read/Osm/OsmThing.hpp"

namespace orivanta::importer {

/// The language of the values of "name": the one whose translations agree with them most often,
/// else that of the country in addresses and telephone numbers. Empty if nothing tells it.
std::string languageOf(const std::vector<OsmThing>& things);

}  // namespace orivanta::importer
