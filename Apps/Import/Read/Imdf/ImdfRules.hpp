// Checks an IMDF archive against the rules of the standard.
#pragma once

#include "Apps/Import/Findings.hpp"
#include "Apps/Import/Read/Imdf/ImdfArchive.hpp"

namespace orivanta::importer {

/// Adds a finding for each breach, under the standard's own name of the rule where it has one. The
/// rules for files, identifiers and types are checked by `readImdfArchive`. The rules for shapes
/// are no longer checked after a great deal of work, with a finding.
void checkImdf(const ImdfArchive& archive, Findings& findings);

/// The part of `checkImdf` about shapes: what must lie within what.
void checkImdfShapes(const ImdfArchive& archive, Findings& findings);

}  // namespace orivanta::importer
