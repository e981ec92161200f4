// What is doubtful about the shapes of things in an extract of OpenStreetMap.
#pragma once

#include <cstddef>
#include <string>

#include "Apps/Import/Findings.hpp"

namespace orivanta::importer {

/// A way some of whose nodes are missing in the extract. `isLost`: too many, so it is left out.
Finding nodesMissing(const std::string& id, std::size_t number, bool isLost,
                     const std::string& file);

/// An area whose outline is not closed.
Finding ringOpen(const std::string& id, const std::string& file);

}  // namespace orivanta::importer
