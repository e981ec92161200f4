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

/// The part of `checkImdf` about what all features of a type must have: a shape, a category, a
/// level.
void checkImdfTypes(const ImdfArchive& archive, Findings& findings);

/// The part of `checkImdf` about references of a feature that have no rule of their own.
void checkImdfReferences(const ImdfArchive& archive, const ImdfFeature& feature,
                         Findings& findings);

}  // namespace orivanta::importer
