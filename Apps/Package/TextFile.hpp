// Writes whole files.
#pragma once

#include <filesystem>
#include <string_view>

namespace orivanta::package {

/// Replaces the file. Throws `std::runtime_error` with the file's name if it cannot be written.
void writeFile(const std::filesystem::path& file, std::string_view bytes);

}  // namespace orivanta::package
