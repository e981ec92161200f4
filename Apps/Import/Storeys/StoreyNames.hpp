// Names of storeys for sources that do not name them.
#pragma once

#include <string>
#include <vector>

#include "Apps/Import/Building.hpp"

namespace orivanta::importer {

/// Gives the storey a name and a short name where it has none. Names that the function invents are
/// in the language of the building, or English if it is unknown to the importer, and in all
/// `languages` that are known. They are marked as generated. A short name of the source, such as
/// "2", that is not the usual one for the ordinal becomes part of the name: "Level 2".
void nameStorey(Storey& storey, const std::string& language,
                const std::vector<std::string>& languages);

}  // namespace orivanta::importer
