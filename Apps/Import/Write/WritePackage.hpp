// Writes an imported building as a venue package.
#pragma once

#include <filesystem>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// Writes the records, the models, the pictures and a floor plan (SVG) per storey. Replaces an
/// existing package and keeps files of other origin, as `package::ReplacedFolder` describes. The
/// same building gives the same bytes. Throws `std::runtime_error` if `target` must not be replaced
/// or a file cannot be written; `target` is then unchanged. Calls `progress`, which may be empty,
/// before each storey.
void writePackage(const Building& building, const std::filesystem::path& target,
                  const Progress& progress = {});

}  // namespace orivanta::importer
