#include "Platform/Foundation/ExecutablePath.hpp"

namespace orivanta::foundation {

// The name of the user's folders in the file system in memory. There is no file with this path.
std::filesystem::path executablePath() { return "/orivanta"; }

}  // namespace orivanta::foundation
