// Files of a package, opened so that no request reaches anything else.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta::server {

/// A regular file, open for reading.
class PackageFile {
 public:
  /// Opens the file at a path below `folder`, given as its decoded segments; `folder` is absolute
  /// and free of symbolic links. Nothing when there is no such file, when a segment is empty,
  /// begins with a dot or holds a slash or a NUL, and when a symbolic link leads out of the folder
  /// or to a name with a leading dot.
  static std::optional<PackageFile> open(const std::filesystem::path& folder,
                                         const std::vector<std::string>& segments);

  PackageFile(PackageFile&& other) noexcept;
  PackageFile& operator=(PackageFile&& other) noexcept;
  ~PackageFile();

  std::uint64_t size() const { return size_; }
  /// Changes with the file's contents: made of its number, size and time of change.
  const std::string& version() const { return version_; }
  /// All bytes; fewer than `size` when the file shrinks at the same time.
  std::string read() const;
  /// Hands the descriptor over to the caller, who closes it.
  int release();

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
