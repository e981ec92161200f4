// Making the demo venue.
#pragma once

#include <filesystem>

namespace orivanta::demo {

/// Writes the whole package into the folder, which is made when it is missing; files that are there
/// are replaced. The same bytes every time. Throws `std::runtime_error` or
/// `std::filesystem::filesystem_error` when something cannot be written.
void writeDemoVenue(const std::filesystem::path& folder);

}  // namespace orivanta::demo
