// A folder for the files of one test.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace orivanta::test {

/// Made empty below the system's folder for temporary files, and removed with all that it holds.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "orivanta-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = std::filesystem::canonical(name);
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  /// Absolute, without symbolic links.
  const std::filesystem::path& path() const { return path_; }

  /// Writes a file, and the folders on the way to it.
  void write(const std::filesystem::path& relativePath, std::string_view contents) const {
    const std::filesystem::path file = path_ / relativePath;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << contents;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace orivanta::test
