// Makes all texts of a source fit for the package: valid UTF-8 without control characters.
#pragma once

#include <string>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// Replaces what is not UTF-8 with U+FFFD, and control characters other than tabs and line ends
/// with blanks. Returns whether there was any.
bool cleanText(std::string& text);

/// Cleans all texts of a building, and reports each record that had other texts. Bytes of
/// identifiers are replaced with "%" and two hexadecimal digits, so that they remain different.
void cleanTexts(Building& building, Findings& findings);

}  // namespace orivanta::importer
