// Findings as text for a terminal and as JSON.
#pragma once

#include <string>
#include <string_view>

#include "Apps/Import/Findings.hpp"

namespace orivanta::command {

/// Returns the findings, grouped by rule, worst first, and a last line with their numbers. `source`
/// is the name of what was checked. Of each group, the first ten findings are listed.
std::string findingsText(const importer::Findings& findings, std::string_view source);

/// Returns a line of JSON for each finding, worst first; Docs/findings.schema.json describes it.
std::string findingsJson(const importer::Findings& findings, std::string_view source);

}  // namespace orivanta::command
