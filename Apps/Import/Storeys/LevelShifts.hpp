// Sites whose buildings count their storeys differently.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// Adds `options.levelShifts` to the ordinals of the named buildings' storeys and of everything
/// that lies within their footprints or up to a meter outside. Reports names of no building.
void shiftLevels(Building& building, const Options& options, Findings& findings);

/// Reports buildings whose storeys have the same short names at different ordinals
/// (`storeys-shifted`).
void reportShiftedStoreys(const Building& building, Findings& findings);

}  // namespace orivanta::importer
