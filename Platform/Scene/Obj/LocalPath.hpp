// Names of files as a model gives them.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

namespace orivanta::scene::obj {

/// The path of a name, relative to the model's folder and inside it. Backslashes separate folders
/// as slashes do. Of a name that is absolute or leads out of the folder the last part is taken.
/// Nothing when that is no file name.
std::optional<std::filesystem::path> localPath(std::string_view name);

}  // namespace orivanta::scene::obj
