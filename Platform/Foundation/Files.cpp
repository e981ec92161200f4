#include "Platform/Foundation/Files.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <fstream>
#include <random>
#include <system_error>

#include "Platform/Foundation/UserFolder.hpp"

namespace orivanta::foundation {

namespace fs = std::filesystem;

namespace {

// A file of its own beside the one to be replaced, removed again unless it takes that one's place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& target) {
    std::random_device random;
    do {
      path_ = target.parent_path() / fmt::format(".{:08x}{:08x}.part", random(), random());
      descriptor_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (descriptor_ < 0 && errno == EEXIST);
    exists_ = descriptor_ >= 0;
  }
  ~TemporaryFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (exists_) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  // These say in `errno` why they fail.
  bool exists() const { return exists_; }

  bool write(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t count = ::write(descriptor_, bytes.data(), bytes.size());
      if (count < 0 && errno != EINTR) return false;
      if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }

  bool takePlaceOf(const fs::path& target) {
    if (::fsync(descriptor_) != 0) return false;
    const int closed = ::close(descriptor_);
    descriptor_ = -1;
    if (closed != 0 || ::rename(path_.c_str(), target.c_str()) != 0) return false;
    exists_ = false;
    return true;
  }

 private:
  fs::path path_;
  int descriptor_ = -1;  // -1 for none
  bool exists_ = false;
};

}  // namespace

std::optional<fs::path> cachesDirectory() {
  auto folder = userFolder("XDG_CACHE_HOME", ".cache");
  std::error_code failure;
  if (folder) fs::create_directories(*folder, failure);
  return folder;
}

std::optional<std::string> readFile(const fs::path& file, std::size_t largestBytes) {
  std::error_code failure;
  if (!fs::is_regular_file(file, failure)) return std::nullopt;
  const std::uintmax_t size = fs::file_size(file, failure);
  if (failure || size > largestBytes) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  if (!stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return std::nullopt;
  return bytes;
}

std::optional<Error> writeFileAtomically(const fs::path& file, std::string_view bytes) {
  TemporaryFile temporary(file);
  if (temporary.exists() && temporary.write(bytes) && temporary.takePlaceOf(file))
    return std::nullopt;
  const int code = errno;
  return Error{
      "file", code,
      fmt::format("cannot write {}: {}", file.string(), std::generic_category().message(code))};
}

}  // namespace orivanta::foundation
