// Tells what the cells of an IndoorGML document are.
#pragma once

#include <optional>
#include <string>

#include "Apps/Import/Building.hpp"
#include "Apps/Import/Read/IndoorGml/IndoorGmlDocument.hpp"

namespace orivanta::importer {

/// Whether the cell stands for a door.
bool isGmlDoor(const GmlSpace& cell);

/// What the cell says that it is: by its description, its element, its function or its name.
std::optional<AreaKind> statedKind(const GmlSpace& cell);

/// As above, but without its element, which may be the same for corridors and stairs.
std::optional<AreaKind> describedKind(const GmlSpace& cell);

/// The word or code that says it, in lower case, such as "stair" or "generalspace".
std::string gmlCategory(const GmlSpace& cell);

}  // namespace orivanta::importer
