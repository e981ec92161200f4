// Imports a building: reads its source and derives what the source does not have.
#pragma once

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Options.hpp"

namespace orivanta::importer {

/// Runs all stages on what a reader has read, in order and without a review.
void runStages(Building& building, const Options& options, Findings& findings);

/// Reads the sources, corrects them, runs all stages and reviews the result. The result is
/// deterministic: the same files and options give the same building and the same findings. Throws
/// `SourceError` if the sources cannot be read.
Building importBuilding(const Options& options, Findings& findings);

}  // namespace orivanta::importer
