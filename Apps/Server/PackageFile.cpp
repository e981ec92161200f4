#include "Apps/Server/PackageFile.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <boost/algorithm/string/predicate.hpp>
#include <cerrno>
#include <utility>

namespace orivanta::server {

namespace fs = std::filesystem;

namespace {

bool isServed(std::string_view segment) {
  return !segment.empty() && segment.front() != '.' &&
         segment.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

// Whether `file` is inside `folder` and has no hidden path segment below it. Both paths are
// absolute and free of symbolic links.
bool liesBelow(const fs::path& file, const fs::path& folder) {
  const auto [folderEnd, rest] =
      std::mismatch(folder.begin(), folder.end(), file.begin(), file.end());
  return folderEnd == folder.end() && rest != file.end() &&
         std::all_of(rest, file.end(),
                     [](const fs::path& part) { return isServed(part.string()); });
}

// Returns the error if the system is out of descriptors or memory, and no error otherwise.
std::error_code shortageOf(const std::error_code& error) {
  for (const std::errc lack :
       {std::errc::too_many_files_open, std::errc::too_many_files_open_in_system,
        std::errc::not_enough_memory})
    if (error == lack) return error;
  return {};
}

}  // namespace

std::optional<PackageFile> PackageFile::open(const fs::path& folder,
                                             const std::vector<std::string>& segments,
                                             std::error_code& shortage) {
  shortage.clear();
  if (segments.empty() || !std::all_of(segments.begin(), segments.end(), isServed))
    return std::nullopt;
  fs::path named = folder;
  for (const std::string& segment : segments) named /= segment;
  std::error_code error;
  const fs::path path = fs::canonical(named, error);
  shortage = shortageOf(error);
  if (error || !liesBelow(path, folder)) return std::nullopt;
  // Without O_NONBLOCK, opening a named pipe would block until a writer opens it.
  PackageFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
  if (file.descriptor_ < 0) shortage = shortageOf({errno, std::generic_category()});
  struct stat status {};
  if (file.descriptor_ < 0 || ::fstat(file.descriptor_, &status) != 0 || !S_ISREG(status.st_mode))
    return std::nullopt;
  file.size_ = static_cast<std::uint64_t>(status.st_size);
  file.version_ = fmt::format("{:x}-{:x}-{:x}-{:x}.{:x}", status.st_dev, status.st_ino,
                              status.st_size, status.st_ctim.tv_sec, status.st_ctim.tv_nsec);
  return file;
}

PackageFile::PackageFile(PackageFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)),
      size_(other.size_),
      version_(std::move(other.version_)) {}

PackageFile& PackageFile::operator=(PackageFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(size_, other.size_);
  std::swap(version_, other.version_);
  return *this;
}

PackageFile::~PackageFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::size_t PackageFile::read(std::uint64_t position, char* bytes, std::size_t count) const {
  if (position >= size_) return 0;
  count = static_cast<std::size_t>(std::min<std::uint64_t>(count, size_ - position));
  const ssize_t got = ::pread(descriptor_, bytes, count, static_cast<off_t>(position));
  return got > 0 ? static_cast<std::size_t>(got) : 0;
}

MediaType mediaTypeOf(std::string_view fileName) {
  struct Row {
    std::string_view ending;
    MediaType type;
  };
  static constexpr std::array<Row, 12> rows = {{
      {".json", {"application/json", true}},
      {".obj", {"model/obj", true}},
      {".mtl", {"model/mtl", true}},
      {".txt", {"text/plain; charset=utf-8", true}},
      {".md", {"text/plain; charset=utf-8", true}},
      {".svg", {"image/svg+xml", true}},
      {".png", {"image/png", false}},
      {".jpg", {"image/jpeg", false}},
      {".jpeg", {"image/jpeg", false}},
      {".gif", {"image/gif", false}},
      {".webp", {"image/webp", false}},
      {".bmp", {"image/bmp", true}},
  }};
  for (const Row& row : rows)
    if (boost::algorithm::iends_with(fileName, row.ending)) return row.type;
  return {"application/octet-stream", false};
}

}  // namespace orivanta::server
