// Draws the floors of a package for the report, from the models, with the numbers of findings.
#pragma once

#include <filesystem>
#include <vector>

#include "Apps/Import/Report/Report.hpp"

namespace orivanta::check {

/// Returns the report of a package: the findings, and a plan of each floor with a model, from the
/// top floor down. Parts of floors that do not face up are not drawn.
importer::Report packageReport(const std::filesystem::path& folder,
                               const importer::Findings& findings);

}  // namespace orivanta::check
