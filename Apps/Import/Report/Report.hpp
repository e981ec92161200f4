// Writes findings as one HTML file that refers to no other: a table, and a plan of each storey with
// the numbers of the findings at their positions.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// The plan of a storey.
struct ReportPlan {
  std::string title;  ///< such as "Ground floor"
  std::string svg;    ///< a complete `<svg>` element with the numbers of the findings
};

struct Report {
  std::string title;              ///< the name of the building
  std::string source;             ///< the files or the folder
  std::string summary;            ///< one line; see `summaryOf`
  std::vector<Finding> findings;  ///< numbered from 1 in this order
  std::vector<ReportPlan> plans;  ///< from the top storey down
  /// The contents of a file of corrections, for copying; empty if there is none.
  std::string corrections;
};

/// Returns the numbers of findings by severity, such as "2 violations, 1 warning", or "nothing to
/// look at".
std::string summaryOf(const Findings& findings);

/// Returns the report of a building with the plans of its storeys. `source` names the files.
Report buildingReport(const Building& building, const Findings& findings, std::string source);

/// Returns the report as HTML. All texts are escaped; plans are inserted as they are.
std::string reportHtml(const Report& report);

/// Writes the report. Throws `std::runtime_error` if the file cannot be written.
void writeReport(const Report& report, const std::filesystem::path& file);

}  // namespace orivanta::importer
