// The demo venue, written into a temporary folder once for all tests of the process.
#pragma once

#include <filesystem>

#include "Apps/DemoVenue/DemoVenue.hpp"
#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Plan.hpp"
#include "Tests/Support/TemporaryFolder.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

inline const std::filesystem::path& generatedVenue() {
  static const TemporaryFolder folder;
  static const bool written = (demo::writeDemoVenue(folder.path()), true);
  static_cast<void>(written);
  return folder.path();
}

inline const demo::Plan& plan() {
  static const demo::Plan made = demo::makePlan();
  return made;
}

}  // namespace orivanta::test
