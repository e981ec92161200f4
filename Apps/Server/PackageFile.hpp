// Files of a package, opened so that no request reaches anything else.
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
  /// Opens the file at a path below `folder`, given as its decoded segments; `folder` is absolute
  /// and free of symbolic links. Nothing when there is no such file, when a segment is empty,
  /// begins with a dot or holds a slash or a NUL, and when a symbolic link leads out of the folder
  /// or to a name with a leading dot. If the file may exist, but the system is out of descriptors
  /// or memory, `shortage` says so; else it is cleared.
  static std::optional<PackageFile> open(const std::filesystem::path& folder,
                                         const std::vector<std::string>& segments,
                                         std::error_code& shortage);

  PackageFile(PackageFile&& other) noexcept;
  PackageFile& operator=(PackageFile&& other) noexcept;
  ~PackageFile();

  std::uint64_t size() const { return size_; }
  /// Changes with the file's contents: made of its device, number, size and time of change.
  const std::string& version() const { return version_; }
  /// Reads at most `count` of the `size` bytes, from `position` on. Returns how many were read: 0
  /// at the end, and also before if the file has become shorter or cannot be read. Bytes that were
  /// added after it was opened are not read.
  std::size_t read(std::uint64_t position, char* bytes, std::size_t count) const;

 private:
  explicit PackageFile(int descriptor) : descriptor_(descriptor) {}

  int descriptor_;  // -1 for none
  std::uint64_t size_ = 0;
  std::string version_;
};

/// The media type that the name of a file suggests, and whether it is worth compressing.
struct MediaType {
  std::string_view name;
  bool isText;
};
MediaType mediaTypeOf(std::string_view fileName);

}  // namespace orivanta::server
