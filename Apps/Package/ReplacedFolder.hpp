// A folder that is written beside another one and then replaces it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "Apps/Package/HeldSignals.hpp"

namespace orivanta::package {

/// Until `commit`, the target stays as it is. The destructor removes what was not committed. While
/// the object exists, Ctrl+C waits; `write` and `commit` then throw. Files that others have put
/// into the target are kept. All functions throw `std::runtime_error` with the name of the file
/// that cannot be written.
class ReplacedFolder {
 public:
  /// The absolute path of a target, without symbolic links and a slash at its end. Throws unless
  /// nothing exists there, or an empty folder, or one that this class wrote for the same command
  /// and whose files nobody has changed since then.
  static std::filesystem::path checked(const std::filesystem::path& target,
                                       std::string_view command);

  /// Checks the target and creates an empty folder beside it. Parent folders are created if
  /// necessary. `command` is the name of the subcommand that writes the folder.
  ReplacedFolder(const std::filesystem::path& target, std::string_view command);
  ~ReplacedFolder();
  ReplacedFolder(const ReplacedFolder&) = delete;
  ReplacedFolder& operator=(const ReplacedFolder&) = delete;

  /// The new folder. What is written into it directly becomes a part of it as well.
  const std::filesystem::path& path() const { return folder_; }

  /// Writes a file and its parent folders; the name is relative. A file with the same contents as
  /// that in the target keeps its modification time, so that clients need not fetch it again.
  void write(const std::filesystem::path& name, std::string_view bytes);

  /// Puts the folder in the place of the target in one step, and removes the old one.
  void commit();

 private:
  void removeParents() const;
  void stopIfInterrupted() const;
  void keepFilesOfOthers();
  void exchange();

  HeldSignals signals_;
  std::string command_;
  std::filesystem::path target_;
  std::filesystem::path folder_;                    // empty if it has replaced the target
  std::vector<std::filesystem::path> madeParents_;  // innermost first
};

}  // namespace orivanta::package
