// Where the running program lies.
#pragma once

#include <filesystem>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// The absolute path of the running program. Empty if the system does not tell. Any thread.
ORIVANTA_API std::filesystem::path executablePath();

}  // namespace orivanta::foundation
