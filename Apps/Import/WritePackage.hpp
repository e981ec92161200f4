// Writes an imported building as a venue package.
#pragma once

#include <filesystem>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Writes the records, the models, the pictures and a floor plan (SVG) per storey into a folder
/// beside `target`, and renames it to `target` when it is complete. An existing package at
/// `target` is replaced. The same building gives the same bytes. Throws `std::runtime_error` if
/// `target` exists and is no package, or if a file cannot be written.
void writePackage(const Building& building, const std::filesystem::path& target);

}  // namespace orivanta::importer
