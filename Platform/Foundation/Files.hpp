// Reads and writes whole files, and finds the cache folder.
#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/Result.hpp"

namespace orivanta::foundation {

/// The application's cache folder: a folder with the executable's name in $XDG_CACHE_HOME if that
/// is an absolute path, or else in ~/.cache. The folder is created if possible. Returns nothing if
/// its path cannot be determined. Thread-safe.
ORIVANTA_API std::optional<std::filesystem::path> cachesDirectory();

/// The contents of a file. Unlike a string, the memory is not filled with zeros first, which would
/// take as long as reading.
struct FileBytes {
  std::unique_ptr<char[]> data;
  std::size_t count = 0;

  std::string_view text() const { return {data.get(), count}; }
};

/// Reads a regular file. Fails if the file cannot be read, becomes shorter while it is read, or is
/// larger than `largestBytes`. The error's domain is "file", its code is an `errno` (EFBIG if the
/// file is too large), and its text begins with the file's path. Thread-safe.
ORIVANTA_API Result<FileBytes> readBytes(const std::filesystem::path& file,
                                         std::size_t largestBytes);

/// Like `readBytes`, but returns a string. Thread-safe.
ORIVANTA_API Result<std::string> readFile(const std::filesystem::path& file,
                                          std::size_t largestBytes);

/// Passes the contents of a file to `take`, in order, in blocks of at most 64 KiB, until it returns
/// false. Ends early if the file cannot be read any further. Thread-safe.
ORIVANTA_API void readInBlocks(const std::filesystem::path& file,
                               const std::function<bool(std::string_view block)>& take);

/// Replaces a file atomically: other processes see either the old or the new contents, even if the
/// disk is full, the process is killed, or others write the same file. A killed process may leave a
/// hidden file in the same folder. The error's domain is "file", and its code is an `errno`.
/// Thread-safe.
ORIVANTA_API Result<void> writeFileAtomically(const std::filesystem::path& file,
                                              std::string_view bytes);

/// Removes the hidden files that killed processes left in a folder while writing. Files of running
/// processes are kept; if the file system does not support locks, all are kept. Thread-safe.
ORIVANTA_API void removeAbandonedFiles(const std::filesystem::path& folder);

}  // namespace orivanta::foundation
