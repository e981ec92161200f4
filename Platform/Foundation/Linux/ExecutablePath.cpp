#include "Platform/Foundation/ExecutablePath.hpp"

#include <system_error>

namespace orivanta::foundation {

namespace fs = std::filesystem;

fs::path executablePath() {
  std::error_code failure;
  fs::path path = fs::read_symlink("/proc/self/exe", failure);
  return failure ? fs::path() : path;
}

}  // namespace orivanta::foundation
