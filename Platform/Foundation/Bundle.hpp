// The host application's main bundle: where its resources, settings among them, are found.
// Public header.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Sets the resource folder of the host application for the whole process. Call it before the
/// first use of the library: settings are read once. Any thread.
ORIVANTA_API void setMainBundleFolder(std::filesystem::path folder);

/// The files directly inside the main bundle whose name ends in "." and `type`, sorted by name.
/// The bundle is the folder that was set, else `Resources` beside the executable followed by the
/// user's configuration folder for the application ($XDG_CONFIG_HOME or ~/.config, then the
/// executable's name). A folder that does not exist has no files. Any thread.
ORIVANTA_API std::vector<std::filesystem::path> mainBundleFiles(std::string_view type);

}  // namespace orivanta::foundation
