#include "Platform/Foundation/UserFolder.hpp"

#include <cstdlib>

#include "Platform/Foundation/ExecutablePath.hpp"

namespace orivanta::foundation {

namespace fs = std::filesystem;

std::optional<fs::path> userFolder(const char* variable, const char* fallback) {
  const fs::path executable = executablePath();
  if (executable.empty()) return std::nullopt;
  const char* configured = std::getenv(variable);
  if (configured != nullptr && fs::path(configured).is_absolute())
    return fs::path(configured) / executable.filename();
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') return std::nullopt;
  return fs::path(home) / fallback / executable.filename();
}

}  // namespace orivanta::foundation
