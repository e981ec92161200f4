// Real buildings to test on. They lie beside the project, not in it, and may be missing.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "Source/VenueJoin.hpp"

namespace orivanta::test {

/// The folder of venue packages: the variable ORIVANTA_VENUES of the environment, else
/// `../shared/venues` beside the project; nothing when there is none.
std::optional<std::filesystem::path> venuesFolder();

/// The names of the packages in the folder, sorted; empty without a folder.
std::vector<std::string> venueNames();

/// The whole file; "" when it cannot be read.
std::string contentsOf(const std::filesystem::path& file);

/// The records of a package as the web API would give them, in the order of its files, not joined.
CollectionDictionary readPackage(const std::filesystem::path& package);

}  // namespace orivanta::test
