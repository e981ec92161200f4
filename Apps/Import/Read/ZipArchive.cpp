#include "Apps/Import/Read/ZipArchive.hpp"

#include <fmt/format.h>
#include <sys/stat.h>
#include <zip.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <map>
#include <memory>
#include <utility>

#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace {

constexpr std::uint64_t mostMembers = 20'000;
constexpr std::uint64_t largestDirectory = 16U << 20U;

constexpr std::string_view endMark = "PK\x05\x06";
constexpr std::string_view largeEndMark = "PK\x06\x06";
constexpr std::string_view largeLocatorMark = "PK\x06\x07";

std::uint64_t numberAt(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint64_t number = 0;
  for (std::size_t each = size; each-- > 0;)
    if (offset + each < bytes.size())
      number = number << 8U | static_cast<unsigned char>(bytes[offset + each]);
  return number;
}

// Whether all that could be the end of the archive's directory describe a directory of a size that
// is safe to read. The library reads as many entries as the directory has, before they can be
// counted.
bool hasSmallDirectory(const std::filesystem::path& path) {
  constexpr std::uintmax_t longestEnd = 70'000;
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  std::ifstream stream(path, std::ios::binary);
  stream.seekg(static_cast<std::streamoff>(size - std::min(size, longestEnd)));
  const std::string end(std::istreambuf_iterator<char>(stream), {});
  const std::string_view text = end;
  const auto allSmall = [&](std::string_view mark, std::size_t count, std::size_t bytes,
                            std::size_t width, std::size_t countWidth) {
    for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + 1))
      if (numberAt(text, at + count, countWidth) > mostMembers ||
          numberAt(text, at + bytes, width) > largestDirectory)
        return false;
    return true;
  };
  if (text.find(largeLocatorMark) != text.npos && text.find(largeEndMark) == text.npos)
    return false;
  return allSmall(endMark, 10, 12, 4, 2) && allSmall(largeEndMark, 32, 40, 8, 8);
}

class Archive {
 public:
  Archive(const std::filesystem::path& path, std::string name) : name_(std::move(name)) {
    if (!hasSmallDirectory(path))
      fail(fmt::format("the archive has more than {} members; pack only the files of the building",
                       mostMembers));
    int code = 0;
    archive_.reset(zip_open(path.c_str(), ZIP_RDONLY, &code));
    if (archive_) return;
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    const std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
    fail("the archive is cut off or damaged (" + reason + "); fetch or pack it again");
  }

  std::vector<SourceFile> unpack(const std::function<bool(std::string_view)>& wanted,
                                 std::size_t& bytesLeft) {
    std::vector<SourceFile> files;
    for (const auto& [member, index] : members(wanted))
      files.push_back({name_ + '/' + member, contents(member, index, bytesLeft)});
    return files;
  }

 private:
  [[noreturn]] void fail(const std::string& cause) const {
    throw SourceError(name_ + ": " + cause);
  }

  std::map<std::string, zip_uint64_t> members(const std::function<bool(std::string_view)>& wanted) {
    std::map<std::string, zip_uint64_t> found;
    const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
    for (zip_uint64_t index = 0; std::cmp_less(index, count); ++index) {
      const char* text = zip_get_name(archive_.get(), index, ZIP_FL_ENC_GUESS);
      const std::string member = text == nullptr ? "" : text;
      if (member.starts_with('/') || ('/' + member + '/').find("/../") != std::string::npos)
        fail("the member \"" + member +
             "\" names a file outside of the archive; pack the files again");
      if (!wanted(member)) continue;
      if (!found.emplace(member, index).second)
        fail("there are two members \"" + member + "\"; remove one of them");
    }
    return found;
  }

  std::string contents(const std::string& member, zip_uint64_t index, std::size_t& bytesLeft) {
    requireFile(member, index);
    const std::unique_ptr<zip_file_t, int (*)(zip_file_t*)> file(
        zip_fopen_index(archive_.get(), index, 0), zip_fclose);
    if (!file) failToUnpack(member, zip_strerror(archive_.get()));
    std::string bytes;
    std::array<char, 65536> piece;
    for (;;) {
      const zip_int64_t read = zip_fread(file.get(), piece.data(), piece.size());
      if (read < 0) failToUnpack(member, zip_file_strerror(file.get()));
      if (read == 0) return bytes;
      const auto size = static_cast<std::size_t>(read);
      if (size > bytesLeft)
        fail("the files are too large when unpacked (at \"" + member +
             "\"); pack only the files of the building");
      bytesLeft -= size;
      bytes.append(piece.data(), size);
    }
  }

  [[noreturn]] void failToUnpack(const std::string& member, const std::string& reason) const {
    fail("the member \"" + member + "\" cannot be unpacked (" + reason +
         "); fetch or pack the archive again");
  }

  void requireFile(const std::string& member, zip_uint64_t index) const {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    zip_file_get_external_attributes(archive_.get(), index, 0, &system, &attributes);
    if (system == ZIP_OPSYS_UNIX && S_ISLNK(attributes >> 16U))
      fail("the member \"" + member + "\" is a symbolic link; pack the file itself");
    zip_stat_t status;
    zip_stat_init(&status);
    if (zip_stat_index(archive_.get(), index, 0, &status) == 0 &&
        (status.valid & ZIP_STAT_ENCRYPTION_METHOD) != 0 && status.encryption_method != ZIP_EM_NONE)
      fail("the member \"" + member +
           "\" is encrypted; unpack the archive with its password, and import the folder");
  }

  struct Discard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
  };

  std::string name_;
  std::unique_ptr<zip_t, Discard> archive_;
};

}  // namespace

bool isZipArchive(std::string_view bytes) {
  return bytes.starts_with("PK\x03\x04") || bytes.starts_with(endMark);
}

std::vector<SourceFile> unpackZip(const std::filesystem::path& path, const std::string& name,
                                  const std::function<bool(std::string_view)>& wanted,
                                  std::size_t& bytesLeft) {
  return Archive(path, name).unpack(wanted, bytesLeft);
}

}  // namespace orivanta::importer
