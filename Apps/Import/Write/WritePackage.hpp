// Writes an imported building as a venue package.
#pragma once

#include <filesystem>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Throws `std::runtime_error` unless nothing exists at `target`, or a package or an empty folder
/// that `writePackage` may replace.
void checkTarget(const std::filesystem::path& target);

/// Writes the records, the models, the pictures and a floor plan (SVG) per storey into a folder
/// beside `target`, and renames it to `target` when it is complete. An existing package at
/// `target` is replaced at once; its closure.json is kept. The same building gives the same bytes.
/// Throws `std::runtime_error` if `target` exists and is no package, or if a file cannot be
/// written; `target` is then unchanged.
void writePackage(const Building& building, const std::filesystem::path& target);

}  // namespace orivanta::importer
