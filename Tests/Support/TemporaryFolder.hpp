// A folder that lasts as long as a test.
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

  /// Writes a file below the folder, making the folders on the way; returns its path.
  std::filesystem::path write(const std::filesystem::path& name, std::string_view contents) const;

 private:
  std::filesystem::path path_;
};

}  // namespace orivanta::test
