// The path of the running program.
#pragma once

#include <filesystem>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Returns the absolute path of the running program, or an empty path if the system does not
/// provide it. In a browser, where there is no such file, returns a constant path. Any thread.
ORIVANTA_API std::filesystem::path executablePath();

}  // namespace orivanta::foundation
