// The demo venue written by the build, and its plan.
#pragma once

#include <filesystem>

#include "Apps/DemoVenue/DemoVenue.hpp"
#include "Apps/DemoVenue/Folder.hpp"
#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Plan.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

inline const std::filesystem::path& generatedVenue() {
  static const std::filesystem::path folder = demo::demoVenueFolder().value();
  return folder;
}

inline const demo::Plan& plan() {
  static const demo::Plan made = demo::makePlan();
  return made;
}

}  // namespace orivanta::test
