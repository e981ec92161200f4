#include "Platform/Foundation/Files.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <random>
#include <system_error>
#include <utility>

#include "Platform/Foundation/UserFolder.hpp"

namespace orivanta::foundation {

namespace fs = std::filesystem;

namespace {

struct Descriptor {
  explicit Descriptor(int value = -1) : number(value) {}
  ~Descriptor() { close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool close() { return number >= 0 && ::close(std::exchange(number, -1)) == 0; }

  int number;  // -1 if none
};

constexpr std::string_view temporaryEnding = ".part";
constexpr std::size_t temporaryDigits = 16;

bool isTemporaryName(std::string_view name) {
  if (name.size() != 1 + temporaryDigits + temporaryEnding.size() || name.front() != '.' ||
      !name.ends_with(temporaryEnding))
    return false;
  const std::string_view digits = name.substr(1, temporaryDigits);
  return std::all_of(digits.begin(), digits.end(),
                     [](unsigned char digit) { return std::isxdigit(digit) != 0; });
}

// A temporary file in the folder of the file to be replaced. It is removed unless it replaces that
// file, and it is locked as long as it is being written. On failure, the functions set `errno`.
class TemporaryFile {
 public:
  TemporaryFile() = default;
  ~TemporaryFile() {
    if (exists_) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool createBeside(const fs::path& target) {
    std::random_device random;
    do {
      file_.close();
      path_ = target.parent_path() /
              fmt::format(".{:08x}{:08x}{}", random(), random(), temporaryEnding);
      file_.number = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (file_.number < 0 ? errno == EEXIST : !lock());
    exists_ = file_.number >= 0;
    return exists_;
  }

  bool write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t count = ::write(file_.number, bytes.data(), bytes.size());
      if (count < 0 && errno != EINTR) return false;
      if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
  }

  bool takePlaceOf(const fs::path& target) {
    if (::fsync(file_.number) != 0) return false;
    exists_ = ::rename(path_.c_str(), target.c_str()) != 0;  // before the lock is released
    return !exists_;
  }

 private:
  // Returns false if the file was removed before it was locked. On file systems without locks, no
  // other process removes it.
  bool lock() const {
    while (::flock(file_.number, LOCK_EX) != 0 && errno == EINTR) {
    }
    struct stat status {};
    return ::fstat(file_.number, &status) != 0 || status.st_nlink > 0;
  }

  fs::path path_;
  Descriptor file_;
  bool exists_ = false;
};

// Reads into the memory that `makeRoom` returns for the given number of bytes.
template <class MakeRoom>
Result<void> read(const fs::path& file, std::size_t largestBytes, const MakeRoom& makeRoom) {
  const auto error = [&](int code, std::string_view what) {
    return failure("file", code, fmt::format("{}: {}", file.string(), what));
  };
  const auto lastError = [&] {
    const int code = errno;
    return error(code, std::generic_category().message(code));
  };
  // Opened first, since the path may be replaced before its size is read. Opening a named pipe must
  // not block.
  const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  struct stat status {};
  if (opened.number < 0 || ::fstat(opened.number, &status) != 0) return lastError();
  if (!S_ISREG(status.st_mode)) return error(EINVAL, "is not a regular file");
  const auto size = static_cast<std::size_t>(status.st_size);
  if (size > largestBytes)
    return error(EFBIG, fmt::format("has {} bytes; at most {} are allowed", size, largestBytes));
  char* const room = makeRoom(size);
  for (std::size_t length = 0; length < size;) {
    const ssize_t count = ::read(opened.number, room + length, size - length);
    if (count == 0) return error(EIO, "was truncated while it was read");
    if (count < 0 && errno != EINTR) return lastError();
    if (count > 0) length += static_cast<std::size_t>(count);
  }
  return {};
}

}  // namespace

std::optional<fs::path> cachesDirectory() {
  auto folder = userFolder("XDG_CACHE_HOME", ".cache");
  std::error_code failure;
  if (folder) fs::create_directories(*folder, failure);
  return folder;
}

Result<FileBytes> readBytes(const fs::path& file, std::size_t largestBytes) {
  FileBytes bytes;
  const auto makeRoom = [&](std::size_t count) {
    bytes = {std::unique_ptr<char[]>(new char[count]), count};
    return bytes.data.get();
  };
  return read(file, largestBytes, makeRoom).map([&] { return std::move(bytes); });
}

Result<std::string> readFile(const fs::path& file, std::size_t largestBytes) {
  std::string bytes;
  const auto makeRoom = [&](std::size_t count) {
    bytes.resize(count);
    return bytes.data();
  };
  return read(file, largestBytes, makeRoom).map([&] { return std::move(bytes); });
}

void readInBlocks(const fs::path& file, const std::function<bool(std::string_view)>& take) {
  const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
  std::array<char, 64U << 10U> block;  // NOLINT(*-member-init): filled by `read`
  while (opened.number >= 0) {
    const ssize_t count = ::read(opened.number, block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0 || !take({block.data(), static_cast<std::size_t>(count)})) return;
  }
}

Result<void> writeFileAtomically(const fs::path& file, std::string_view bytes) {
  TemporaryFile temporary;
  if (temporary.createBeside(file) && temporary.write(bytes) && temporary.takePlaceOf(file))
    return {};
  const int code = errno;
  return failure(
      "file", code,
      fmt::format("cannot write {}: {}", file.string(), std::generic_category().message(code)));
}

void removeAbandonedFiles(const fs::path& folder) {
  std::error_code failure;
  for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
       entry.increment(failure)) {
    const fs::path& file = entry->path();
    if (!isTemporaryName(file.filename().string())) continue;
    const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (opened.number >= 0 && ::flock(opened.number, LOCK_EX | LOCK_NB) == 0)
      ::unlink(file.c_str());
  }
}

}  // namespace orivanta::foundation
