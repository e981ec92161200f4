// The list of the files that a command wrote into a folder, so that replacing the folder deletes
// nothing else.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::package {

/// The names of files and their checksums. The list is a hidden text file in the folder itself,
/// whose name contains that of the command, such as "import".
class WrittenFiles {
 public:
  explicit WrittenFiles(std::string_view command);

  /// Reads the list that is in the folder. Returns false if there is none, or if it cannot be read.
  bool load(const std::filesystem::path& folder);

  /// Lists all files in the folder and writes the list into it. Throws `std::runtime_error` if a
  /// file cannot be read or written.
  void save(const std::filesystem::path& folder);

  /// The first listed file that is in the folder with other contents.
  std::optional<std::string> changedIn(const std::filesystem::path& folder) const;

  /// The files in the folder that are not listed, ascending, with names relative to the folder.
  std::vector<std::filesystem::path> othersIn(const std::filesystem::path& folder) const;

 private:
  std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) const;

  std::string listName_;
  std::map<std::string, std::uint32_t> checksums_;
};

}  // namespace orivanta::package
