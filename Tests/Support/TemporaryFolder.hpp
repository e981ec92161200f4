// A folder that exists during a test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace orivanta::test {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  /// Writes a file in the folder, creating parent folders as needed. Returns its path.
  std::filesystem::path write(const std::filesystem::path& name, std::string_view contents) const;

 private:
  std::filesystem::path path_;
};

}  // namespace orivanta::test
