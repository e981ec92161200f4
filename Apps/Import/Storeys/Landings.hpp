// Decides which ordinals are storeys, and moves what lies on others.
#pragma once

#include <map>
#include <optional>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Where the things on each ordinal belong: to the ordinal itself if it is a storey, to the nearest
/// storey if it is a landing, or nowhere.
using StoreyOfLevel = std::map<double, std::optional<double>>;

/// Ordinals with rooms or walkways are storeys, and so are whole ordinals that the source names or
/// that have lines to walk on, places or areas of unknown use. Other fractions are landings of the
/// nearest storey; the lower one of two. Other whole ordinals, which have nothing but the ends of
/// stairs, elevators and doors, belong nowhere. If no ordinal is a storey, all whole ones are.
StoreyOfLevel storeysOfLevels(Building& building);

/// Moves everything to its storey, and leaves out what belongs nowhere. What would be on a storey
/// twice, such as an elevator on a storey and on a landing of it, stays there once.
void moveToStoreys(Building& building, const StoreyOfLevel& storeys, Findings& findings);

}  // namespace orivanta::importer
