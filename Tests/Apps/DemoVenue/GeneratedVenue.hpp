// The demo venue written by the build.
#pragma once

#include <filesystem>

#include "Apps/DemoVenue/Folder.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

inline const std::filesystem::path& generatedVenue() {
  static const std::filesystem::path folder = demo::demoVenueFolder().value();
  return folder;
}

}  // namespace orivanta::test
