// Resolves file names in models.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace orivanta::scene::obj {

/// Returns the path for a name, relative to the model's folder and inside it. Backslashes separate
/// folders like slashes. For a name that is absolute or leads out of the folder, only its last part
/// is used. Returns nothing if that is not a file name.
std::optional<std::filesystem::path> localPath(std::string_view name);

}  // namespace orivanta::scene::obj
