// The path of the running program.
#pragma once

#include <filesystem>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// The absolute path of the running program. Empty if the system does not provide it. Thread-safe.
ORIVANTA_API std::filesystem::path executablePath();

}  // namespace orivanta::foundation
