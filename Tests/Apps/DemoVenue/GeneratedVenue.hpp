// The demo venue, written into a temporary folder once for all tests of the process.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

#include "Apps/DemoVenue/DemoVenue.hpp"
#include "Apps/DemoVenue/Network.hpp"
#include "Apps/DemoVenue/Plan.hpp"
#include "Tests/Support/Venues.hpp"

namespace orivanta::test {

/// A folder below the system's temporary one, removed with everything in it at the end.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::string& name)
      : path_(std::filesystem::temp_directory_path() / (name + std::to_string(::getpid()))) {
    std::filesystem::create_directories(path_);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

inline const std::filesystem::path& generatedVenue() {
  static const TemporaryFolder folder("orivanta-demo-venue-");
  static const bool written = (demo::writeDemoVenue(folder.path()), true);
  static_cast<void>(written);
  return folder.path();
}

inline const demo::Plan& plan() {
  static const demo::Plan made = demo::makePlan();
  return made;
}

}  // namespace orivanta::test
