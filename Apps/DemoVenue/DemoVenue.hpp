// Writes the demo venue.
#pragma once

#include <filesystem>

namespace orivanta::demo {

/// Writes the package into the folder, which is created if needed; existing files are replaced. The
/// output is always the same. Throws `std::runtime_error` or `std::filesystem::filesystem_error` if
/// something cannot be written.
void writeDemoVenue(const std::filesystem::path& folder);

}  // namespace orivanta::demo
