// Finds the demo venue's package, which the server uses when no folder is given.
#pragma once

#include <filesystem>
#include <optional>

namespace orivanta::demo {

/// Returns the package installed with the running program, or else the one in the program's build
/// folder. Returns nothing if neither exists.
std::optional<std::filesystem::path> demoVenueFolder();

}  // namespace orivanta::demo
