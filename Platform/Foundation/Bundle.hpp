// The host application's main bundle, which contains its resources, including its settings.
// Public header.
#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Sets the resource folder of the host application for the whole process. Call it before the first
/// use of the library, because settings are read only once. Any thread.
ORIVANTA_API void setMainBundleFolder(std::filesystem::path folder);

/// Returns the files directly inside the main bundle whose names end in "." and `type`, sorted by
/// name. The bundle is the folder that was set. If none was set, it is the folder `Resources`
/// beside the executable, followed by the user's configuration folder for the application
/// ($XDG_CONFIG_HOME or ~/.config, then the executable's name). A folder that does not exist counts
/// as empty. Any thread.
ORIVANTA_API std::vector<std::filesystem::path> mainBundleFiles(std::string_view type);

}  // namespace orivanta::foundation
