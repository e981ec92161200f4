// Whole files, read and written, and the place for those that can be made again.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"

namespace orivanta::foundation {

/// The application's folder for what can be made or fetched again: $XDG_CACHE_HOME when that is an
/// absolute path, else ~/.cache, followed by the executable's name. Made when it is missing, as far
/// as that is possible. Nothing when no such place is known. Any thread.
ORIVANTA_API std::optional<std::filesystem::path> cachesDirectory();

/// A file's bytes. Unlike those of a string they are not filled with zeros first, which takes as
/// long as reading them.
struct FileBytes {
  std::unique_ptr<char[]> data;
  std::size_t count = 0;

  std::string_view text() const { return {data.get(), count}; }
};

/// The bytes of a regular file. Fails if it cannot be read, becomes shorter meanwhile or holds more
/// than `largestBytes`. The error's domain is "file", its code an `errno`, EFBIG for a file that is
/// too large, and its text begins with the file. Any thread.
ORIVANTA_API Result<FileBytes> readBytes(const std::filesystem::path& file,
                                         std::size_t largestBytes);

/// The same as a string. Any thread.
ORIVANTA_API Result<std::string> readFile(const std::filesystem::path& file,
                                          std::size_t largestBytes);

/// Replaces the file whole or not at all: whoever opens it sees the old contents or the new ones,
/// also when the disk is full, the process is killed or others write the same file. A killed
/// process may leave a hidden file beside it. The error's domain is "file", its code `errno`. Any
/// thread.
ORIVANTA_API Result<void> writeFileAtomically(const std::filesystem::path& file,
                                              std::string_view bytes);

/// Removes the hidden files that killed processes left in a folder while they wrote other files.
/// Those of running processes stay, and so do all of them if the file system has no locks. Any
/// thread.
ORIVANTA_API void removeAbandonedFiles(const std::filesystem::path& folder);

}  // namespace orivanta::foundation
