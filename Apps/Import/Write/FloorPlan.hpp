// Draws a floor plan of one storey as SVG, for documents and reports.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// A numbered disc on a plan.
struct PlanMark {
  std::size_t number = 1;
  Point position;  ///< meters
  Severity severity = Severity::warning;
};

struct PlanOptions {
  bool names = true;            ///< the names of places, where they fit
  bool network = false;         ///< the walking network
  std::vector<PlanMark> marks;  ///< of this storey
};

/// Of marks on plans, such as "#B3261E".
std::string_view colorOf(Severity severity);

/// The plan of the storey with this ordinal: a complete `<svg>` element that refers to no other
/// file, with north at the top and a scale bar. It can stand alone or within HTML. Names and
/// identifiers are escaped. The same building gives the same bytes. A storey without shapes gives
/// an empty drawing that contains the marks.
std::string floorPlanSvg(const Building& building, double level, const PlanOptions& options = {});

}  // namespace orivanta::importer
