#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <map>
#include <system_error>
#include <utility>

#include "Apps/Import/Read/Sources.hpp"
#include "Apps/Import/Read/TextEncoding.hpp"
#include "Apps/Import/Read/ZipArchive.hpp"
#include "Apps/Import/SourceError.hpp"

namespace orivanta::importer {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t mostEntries = 20'000;
constexpr int deepestFolder = 4;

constexpr std::array<std::string_view, 11> usedExtensions = {
    ".geojson", ".json", ".osm", ".pbf", ".gml", ".xml", ".shp", ".shx", ".dbf", ".prj", ".cpg"};

std::string lowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char character) { return std::tolower(character); });
  return text;
}

// Whether a file of a folder or a member of an archive may belong to a source. Names that begin
// with a dot, and "__MACOSX", are what file managers leave behind.
bool isUsed(std::string_view name) {
  const fs::path path(name);
  for (const fs::path& part : path)
    if (part.native().starts_with('.') || part == "__MACOSX") return false;
  const std::string extension = lowerCase(path.extension().string());
  return std::find(usedExtensions.begin(), usedExtensions.end(), extension) != usedExtensions.end();
}

bool isText(std::string_view name) {
  const std::string extension = lowerCase(fs::path(name).extension().string());
  return extension == ".geojson" || extension == ".json" || extension == ".osm" ||
         extension == ".gml" || extension == ".xml";
}

std::string nameOf(const fs::path& path) {
  std::error_code error;
  const fs::path whole = fs::absolute(path, error).lexically_normal();
  return (whole.has_filename() ? whole : whole.parent_path()).filename().string();
}

class FileReader {
 public:
  explicit FileReader(const Limits& limits) : limits_(limits), bytesLeft_(limits.bytes) {}

  void read(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status))
      throw SourceError(path.string() + ": there is no such file or folder; check the path");
    if (fs::is_directory(status)) return readFolder(path);
    SourceFile file{nameOf(path), {}};
    if (fs::is_regular_file(status) && isZipArchive(beginningOf(path)))
      return readZip(path, file.name);
    readBytes(path, file);
    files_.push_back(std::move(file));
    if (lowerCase(path.extension().string()) == ".shp") readCompanions(path);
  }

  std::vector<SourceFile> release() {
    for (SourceFile& file : files_) {
      if (!isText(file.name)) continue;
      const std::size_t before = file.bytes.size();
      if (!decodeText(file.bytes, before + bytesLeft_)) failForSize(file.name);
      bytesLeft_ -= std::max(file.bytes.size(), before) - before;
    }
    return std::move(files_);
  }

 private:
  [[noreturn]] void failForSize(const std::string& file) const {
    throw SourceError(fmt::format("{}: the files are larger than {} MiB; import a part of the area",
                                  file, limits_.bytes >> 20U));
  }

  void readBytes(const fs::path& path, SourceFile& file) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw SourceError(path.string() + ": the file cannot be opened; check its rights");
    // Growing in steps would take twice the memory for a moment.
    std::error_code unknown;
    const std::uintmax_t expected = fs::file_size(path, unknown);
    if (!unknown && expected <= bytesLeft_) file.bytes.reserve(expected);
    std::array<char, 65536> piece;
    while (stream.read(piece.data(), piece.size()), stream.gcount() > 0) {
      const auto size = static_cast<std::size_t>(stream.gcount());
      if (size > bytesLeft_) failForSize(file.name);
      bytesLeft_ -= size;
      file.bytes.append(piece.data(), size);
    }
    if (stream.bad()) throw SourceError(path.string() + ": the file cannot be read");
  }

  static std::string beginningOf(const fs::path& path) {
    std::string bytes(4, '\0');
    std::ifstream stream(path, std::ios::binary);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
  }

  void readZip(const fs::path& path, const std::string& name) {
    std::vector<SourceFile> members = unpackZip(path, name, isUsed, bytesLeft_);
    if (members.empty()) failForNothing(name);
    for (SourceFile& member : members) files_.push_back(std::move(member));
  }

  // The other files of a Shapefile.
  void readCompanions(const fs::path& path) {
    for (const char* extension : {".dbf", ".prj", ".cpg", ".DBF", ".PRJ", ".CPG"}) {
      const fs::path companion = fs::path(path).replace_extension(extension);
      std::error_code error;
      if (!fs::is_regular_file(companion, error)) continue;
      SourceFile file{nameOf(companion), {}};
      readBytes(companion, file);
      files_.push_back(std::move(file));
    }
  }

  void readFolder(const fs::path& folder) {
    std::map<std::string, fs::path> found;
    std::error_code error;
    std::size_t entries = 0;
    fs::recursive_directory_iterator entry(folder, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error)) {
      if (++entries > mostEntries)
        throw SourceError(fmt::format(
            "{}: the folder has more than {} files; name the files of the building themselves",
            folder.string(), mostEntries));
      if (entry.depth() >= deepestFolder) entry.disable_recursion_pending();
      std::error_code unknown;
      const std::string name = entry->path().lexically_relative(folder).generic_string();
      if (isUsed(name) && entry->is_regular_file(unknown)) found.emplace(name, entry->path());
    }
    if (error)
      throw SourceError(folder.string() + ": the folder cannot be read (" + error.message() + ')');
    if (found.empty()) failForNothing(folder.string());
    for (const auto& [name, path] : found) {
      SourceFile file{nameOf(folder) + '/' + name, {}};
      readBytes(path, file);
      files_.push_back(std::move(file));
    }
  }

  [[noreturn]] static void failForNothing(const std::string& name) {
    std::string extensions;
    for (const std::string_view each : usedExtensions)
      extensions += (extensions.empty() ? "" : ", ") + std::string(each);
    throw SourceError(name + ": there is no file that can be imported in it (" + extensions +
                      "); name another file or folder");
  }

  const Limits& limits_;
  std::size_t bytesLeft_;
  std::vector<SourceFile> files_;
};

}  // namespace

std::vector<SourceFile> readFiles(const std::vector<fs::path>& sources, const Limits& limits) {
  FileReader reader(limits);
  for (const fs::path& source : sources) reader.read(source);
  std::vector<SourceFile> files = reader.release();
  if (files.empty()) throw SourceError("there is nothing to import; name a file or a folder");
  return files;
}

}  // namespace orivanta::importer
