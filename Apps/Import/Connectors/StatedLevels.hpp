// Levels of stairs and elevators that contradict those of the paths joined to them.
#pragma once

#include <string>

#include "Apps/Import/Connectors/Surroundings.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// An end of a connector as the source says it.
struct StatedEnd {
  ConnectorKind kind = ConnectorKind::stairs;
  std::string source;  ///< the identifier of the connector
  std::string point;   ///< the identifier of the point at the end; may be empty
  Spot spot;
  bool mayMove = true;
};

/// Whether the paths joined to an end are on other levels, and nothing to walk on is near it on its
/// own. `point` is the identifier of the point at the end.
bool isLost(const Spot& end, const std::string& point, const Surroundings& surroundings);

/// Returns the level on which a connector ends: the stated one, or that of a path joined to the end
/// if it may move, and nothing to walk on is near it on the stated one. Reports ends that lie on
/// the level of none of the paths joined to them (`connector-level-contradicted`).
double settledLevel(const StatedEnd& end, const Surroundings& surroundings, Findings& findings);

}  // namespace orivanta::importer
