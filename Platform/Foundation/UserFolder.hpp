// Finds the user's folders for the running application.
#pragma once

#include <filesystem>
#include <optional>

namespace orivanta::foundation {

/// Returns the folder with the executable's name in the folder that the environment variable
/// `variable` names, such as XDG_CONFIG_HOME. If that is not an absolute path, uses `fallback` in
/// the user's home folder instead. Returns nothing if neither is known. The folder may not exist.
/// Thread-safe.
std::optional<std::filesystem::path> userFolder(const char* variable, const char* fallback);

}  // namespace orivanta::foundation
