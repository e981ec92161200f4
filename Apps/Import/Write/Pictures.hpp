// The pictures of an imported building: its plan as logo and cover, and the signs of categories.
#pragma once

#include <filesystem>

#include "Apps/Import/PackageLayout.hpp"

namespace orivanta::importer {

/// Writes the logo in three sizes and the cover image into the folder, which is created if
/// necessary.
void writeImages(const PackageLayout& layout, const std::filesystem::path& folder);

}  // namespace orivanta::importer
