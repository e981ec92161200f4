#include "Source/FolderStorage.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <ctime>
#include <fstream>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Fnv.hpp"

namespace orivanta {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view ending = ".venue";
constexpr std::string_view mark = "orivanta-venue-1";
constexpr std::size_t mostFolders = 1000;
constexpr std::size_t largestFile = std::size_t{1} << 30U;

// A file begins with a line of the mark, the number of folders, and the length and the checksum of
// the rest, which consists of a line for each folder and of the bytes.
struct Head {
  std::size_t folders = 0;
  std::size_t length = 0;
  std::uint64_t checksum = 0;
};

std::string textOf(const Head& head) {
  return fmt::format("{} {} {} {:016x}\n", mark, head.folders, head.length, head.checksum);
}

template <class Number>
bool takeNumber(std::string_view& text, Number& number, int base) {
  if (!text.starts_with(' ')) return false;
  text.remove_prefix(1);
  const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return problem == std::errc();
}

std::optional<Head> headIn(std::string_view line) {
  Head head;
  if (!line.starts_with(mark)) return std::nullopt;
  line.remove_prefix(mark.size());
  if (!takeNumber(line, head.folders, 10) || !takeNumber(line, head.length, 10) ||
      !takeNumber(line, head.checksum, 16) || !line.empty() || head.folders > mostFolders)
    return std::nullopt;
  return head;
}

std::string fileTextOf(const VenueStorage::Entry& entry) {
  std::string rest;
  for (const std::string& folder : entry.folders) rest += folder + '\n';
  rest += entry.bytes;
  return textOf({entry.folders.size(), rest.size(), foundation::Fnv::of(rest)}) + rest;
}

// Returns the bytes of an entry, or nothing if the file is damaged.
std::optional<std::string> bytesIn(std::string file) {
  const std::size_t headEnd = file.find('\n');
  const auto head = headIn(std::string_view(file).substr(0, headEnd));
  if (headEnd == std::string::npos || !head) return std::nullopt;
  std::string_view rest = std::string_view(file).substr(headEnd + 1);
  if (rest.size() != head->length || foundation::Fnv::of(rest) != head->checksum)
    return std::nullopt;
  for (std::size_t i = 0; i < head->folders; ++i)
    rest.remove_prefix(std::min(rest.size(), rest.find('\n') + 1));
  file.erase(0, file.size() - rest.size());
  return file;
}

// Returns whether a folder is below another one, so that it can be removed.
bool isBelow(const std::string& folder) {
  const fs::path path = fs::path(folder).lexically_normal();
  return path.is_relative() && !path.empty() && path != "." && *path.begin() != "..";
}

// Returns the folders of an entry without reading all of it. Returns nothing if the file is cut.
std::optional<std::vector<std::string>> foldersIn(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string line;
  if (!std::getline(stream, line)) return std::nullopt;
  const auto head = headIn(line);
  std::error_code problem;
  if (!head || fs::file_size(file, problem) != line.size() + 1 + head->length) return std::nullopt;
  std::vector<std::string> folders;
  while (folders.size() < head->folders && std::getline(stream, line))
    if (isBelow(line)) folders.push_back(line);
  return folders;
}

std::size_t sizeOfFilesIn(const fs::path& folder) {
  std::size_t bytes = 0;
  std::error_code problem;
  for (fs::recursive_directory_iterator entry(folder, problem), end; !problem && entry != end;
       entry.increment(problem)) {
    std::error_code unknown;
    const auto size = entry->is_regular_file(unknown) ? entry->file_size(unknown) : 0;
    if (!unknown) bytes += size;
  }
  return bytes;
}

VenueStorage::Time timeOf(const timespec& time) {
  return VenueStorage::Time(std::chrono::duration_cast<VenueStorage::Time::duration>(
      std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec)));
}

// The modification time is when an entry was saved, and the access time is when it was used.
struct Times {
  VenueStorage::Time savedAt;
  VenueStorage::Time usedAt;
};

std::optional<Times> timesOf(const fs::path& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0) return std::nullopt;
  const VenueStorage::Time saved = timeOf(status.st_mtim);
  return Times{saved, std::max(saved, timeOf(status.st_atim))};
}

// The system's time of files is too coarse to order entries.
void setTimes(const fs::path& file, bool savedToo) {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const timespec times[] = {now, savedToo ? now : timespec{0, UTIME_OMIT}};
  ::utimensat(AT_FDCWD, file.c_str(), times, 0);
}

// Whether a file that cannot be read is to be removed.
bool isDamage(const foundation::Error& error) {
  return error.code == EFBIG || error.code == EINVAL;
}

struct OpenFile {
  explicit OpenFile(int descriptor) : number(descriptor) {}
  ~OpenFile() { ::close(number); }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  const int number;
};

// Returns a locked file, or null. The lock ends with the handle or with the process.
std::shared_ptr<void> lockedFile(const fs::path& file, int kind) {
  for (;;) {
    const int number = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (number < 0) return nullptr;
    auto opened = std::make_shared<OpenFile>(number);
    while (::flock(number, kind | LOCK_NB) != 0)
      if (errno != EINTR) return nullptr;
    struct stat status {};
    if (::fstat(number, &status) != 0 || status.st_nlink > 0) return opened;
  }
}

}  // namespace

FolderStorage::FolderStorage(fs::path folder, fs::path filesFolder)
    : folder_(std::move(folder)), filesFolder_(std::move(filesFolder)) {}

fs::path FolderStorage::fileOf(const std::string& key) const {
  return folder_ / (key + std::string(ending));
}

fs::path FolderStorage::lockOf(const std::string& key) const { return folder_ / (key + ".lock"); }

void FolderStorage::list(std::function<void(std::vector<Listed>)> done) {
  struct Found {
    Listed entry;
    std::vector<std::string> folders;
  };
  std::vector<Found> found;
  std::error_code problem;
  for (fs::directory_iterator item(folder_, problem), end; !problem && item != end;
       item.increment(problem)) {
    const fs::path& file = item->path();
    const std::string name = file.filename().string();
    if (name.starts_with('.') || !name.ends_with(ending)) continue;
    std::error_code unknown;
    const auto size = fs::file_size(file, unknown);
    const auto times = timesOf(file);
    if (unknown || !times) continue;
    found.push_back({{name.substr(0, name.size() - ending.size()), static_cast<std::size_t>(size),
                      times->usedAt},
                     foldersIn(file).value_or(std::vector<std::string>())});
  }
  std::sort(found.begin(), found.end(), [](const Found& left, const Found& right) {
    return left.entry.usedAt > right.entry.usedAt;
  });
  std::set<std::string> counted;
  std::vector<Listed> entries;
  entries.reserve(found.size());
  for (Found& each : found) {
    for (const std::string& folder : each.folders)
      if (counted.insert(folder).second) each.entry.bytes += sizeOfFilesIn(filesFolder_ / folder);
    entries.push_back(std::move(each.entry));
  }
  done(std::move(entries));
}

void FolderStorage::load(const std::string& key, std::function<void(std::optional<Loaded>)> done) {
  const fs::path file = fileOf(key);
  auto text = foundation::readFile(file, largestFile);
  const auto times = timesOf(file);
  if (!text || !times) {
    std::error_code problem;
    if (!text && isDamage(text.error())) fs::remove_all(file, problem);
    return done(std::nullopt);
  }
  auto bytes = bytesIn(std::move(*text));
  if (!bytes) {
    std::error_code problem;
    fs::remove(file, problem);
    return done(std::nullopt);
  }
  setTimes(file, false);
  done(Loaded{std::move(*bytes), times->savedAt});
}

void FolderStorage::save(const std::string& key, Entry entry,
                         std::function<void(foundation::Result<void>)> done) {
  std::error_code problem;
  if (fs::create_directories(folder_, problem))
    fs::permissions(folder_, fs::perms::owner_all, problem);
  foundation::removeAbandonedFiles(folder_);
  const fs::path file = fileOf(key);
  const std::string text = fileTextOf(entry);
  const auto former = foundation::readFile(file, text.size());
  auto written = former && *former == text ? foundation::Result<void>()
                                           : foundation::writeFileAtomically(file, text);
  if (written) setTimes(file, true);
  done(std::move(written));
}

void FolderStorage::remove(const std::string& key, std::function<void(bool)> done) {
  const fs::path file = fileOf(key);
  std::error_code problem;
  const auto lock = lockedFile(lockOf(key), LOCK_EX);
  if (!lock) return done(false);
  auto folders = foldersIn(file).value_or(std::vector<std::string>());
  const bool isRemoved = fs::remove(file, problem);
  fs::remove(lockOf(key), problem);
  if (!isRemoved) return done(false);
  for (fs::directory_iterator item(folder_, problem), end; !problem && item != end;
       item.increment(problem)) {
    if (!item->path().filename().string().ends_with(ending)) continue;
    for (const std::string& used : foldersIn(item->path()).value_or(std::vector<std::string>()))
      std::erase(folders, used);
  }
  for (const std::string& folder : folders) fs::remove_all(filesFolder_ / folder, problem);
  done(true);
}

std::shared_ptr<void> FolderStorage::hold(const std::string& key) {
  std::error_code problem;
  if (fs::create_directories(folder_, problem))
    fs::permissions(folder_, fs::perms::owner_all, problem);
  return lockedFile(lockOf(key), LOCK_SH);
}

}  // namespace orivanta
