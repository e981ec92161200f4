#include "Apps/DemoVenue/Folder.hpp"

#include "Platform/Foundation/ExecutablePath.hpp"

namespace orivanta::demo {

std::optional<std::filesystem::path> demoVenueFolder() {
  const auto prefix = foundation::executablePath().parent_path().parent_path();
  for (const auto& folder :
       {prefix / ORIVANTA_DEMO_INSTALLED, std::filesystem::path(ORIVANTA_DEMO_BUILT)}) {
    std::error_code ignored;
    if (std::filesystem::exists(folder / "venue.json", ignored)) return folder;
  }
  return std::nullopt;
}

}  // namespace orivanta::demo
