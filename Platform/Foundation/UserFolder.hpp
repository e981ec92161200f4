// Where the user's folders for the running application lie.
#pragma once

#include <filesystem>
#include <optional>

namespace orivanta::foundation {

/// The folder named after the executable below the one that the environment's `variable` names,
/// such as XDG_CONFIG_HOME, or, when that is no absolute path, below `fallback` in the user's home.
/// Nothing when neither is known. The folder need not exist. Any thread.
std::optional<std::filesystem::path> userFolder(const char* variable, const char* fallback);

}  // namespace orivanta::foundation
