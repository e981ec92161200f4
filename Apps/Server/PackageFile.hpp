// Files of a package, opened so that requests cannot reach anything outside of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace orivanta::server {

/// A regular file, open for reading.
class PackageFile {
 public:
  /// Opens a file below `folder`, which is absolute and free of symbolic links; the path is given
  /// as decoded segments. Returns nothing if there is no such file, if a segment is empty, begins
  /// with a dot or contains a slash or a NUL, or if a symbolic link leads out of the folder or to a
  /// name with a leading dot. If the file may exist but the system is out of descriptors or memory,
  /// `shortage` is set to that error; otherwise it is cleared.
  static std::optional<PackageFile> open(const std::filesystem::path& folder,
                                         const std::vector<std::string>& segments,
                                         std::error_code& shortage);

  PackageFile(PackageFile&& other) noexcept;
  PackageFile& operator=(PackageFile&& other) noexcept;
  ~PackageFile();

  std::uint64_t size() const { return size_; }
  /// Changes when the file changes: made of its device, inode, size and modification time.
  const std::string& version() const { return version_; }
  /// Reads at most `count` bytes from `position`. Returns the number of bytes read: 0 at the end,
  /// or earlier if the file has become shorter or cannot be read. Bytes that were appended after
  /// the file was opened are not read.
  std::size_t read(std::uint64_t position, char* bytes, std::size_t count) const;

 private:
  explicit PackageFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  // -1 if none
  std::uint64_t size_ = 0;
  std::string version_;
};

/// The media type for a file name, and whether compressing such files is useful.
struct MediaType {
  std::string_view name;
  bool isText;
};
MediaType mediaTypeOf(std::string_view fileName);

}  // namespace orivanta::server
