// Knows roughly where countries are.
#pragma once

#include <string>
#include <string_view>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Adds a finding if a position lies outside of a country, but would lie in it if its latitude and
/// longitude were exchanged. The country is a code such as "DE"; unknown ones are not checked.
void reportIfSwapped(Georeference position, std::string_view country, const std::string& file,
                     Findings& findings);

}  // namespace orivanta::importer
