// A folder that is written beside another one and then replaces it.
#pragma once

#include <filesystem>
#include <string_view>

namespace orivanta::publish {

/// Until `commit`, the target stays as it is. The destructor removes what was not committed. All
/// functions throw `std::runtime_error` with the name of the file that cannot be written.
class ReplacedFolder {
 public:
  /// Creates an empty folder beside the target, whose parent folders are created if necessary.
  explicit ReplacedFolder(const std::filesystem::path& target);
  ~ReplacedFolder();
  ReplacedFolder(const ReplacedFolder&) = delete;
  ReplacedFolder& operator=(const ReplacedFolder&) = delete;

  /// Writes a file; the name is relative. A file with the same contents as that in the target keeps
  /// its modification time, so that clients need not fetch it again.
  void write(const std::filesystem::path& name, std::string_view bytes);

  /// Puts the folder in the place of the target in one step, and removes the old one.
  void commit();

 private:
  std::filesystem::path target_;
  std::filesystem::path folder_;
  bool committed_ = false;
};

}  // namespace orivanta::publish
