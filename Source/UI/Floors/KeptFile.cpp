#include "Source/UI/Floors/KeptFile.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/Files.hpp"
#include "Platform/Foundation/Fnv.hpp"
#include "Source/CacheNames.hpp"

namespace orivanta {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestName = 255;
constexpr std::size_t largestNote = 256U << 10U;  // a URL has at most 64 KiB

// Returns length and checksum.
std::string imprintOf(std::size_t length, const foundation::Fnv& checksum) {
  return fmt::format("{} {:016x}", length, checksum.value());
}

std::string imprintOf(std::string_view bytes) {
  foundation::Fnv checksum;
  checksum.add(bytes);
  return imprintOf(bytes.size(), checksum);
}

std::string imprintOf(const fs::path& file) {
  foundation::Fnv checksum;
  std::size_t length = 0;
  foundation::readInBlocks(file, [&](std::string_view block) {
    checksum.add(block);
    length += block.size();
    return true;
  });
  return imprintOf(length, checksum);
}

// Returns the first line and removes it. Returns nothing if there is none.
std::optional<std::string_view> takeLine(std::string_view& lines) {
  if (lines.empty()) return std::nullopt;
  const std::string_view line = lines.substr(0, lines.find('\n'));
  lines.remove_prefix(std::min(lines.size(), line.size() + 1));
  return line;
}

}  // namespace

fs::path cacheFolderAt(std::string_view path) {
  fs::path folder = foundation::unwrap(foundation::cachesDirectory());
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find('/'));
    if (!name.empty()) folder /= cacheFileName(std::string(name));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
  }
  return folder;
}

KeptFile::KeptFile(fs::path file) : file_(std::move(file)) {}

KeptFile KeptFile::of(const foundation::Url& url, std::string_view path) {
  // Hidden names are reserved for the notes.
  return KeptFile(cacheFolderAt(path) /
                  visibleCacheName(foundation::unwrap(url.lastPathComponent())));
}

fs::path KeptFile::note() const {
  const std::string name = file_.filename().string();
  std::string noteName = fmt::format(".{}.origin", name);
  if (noteName.size() > longestName)
    noteName = fmt::format(".{:016x}.origin", foundation::Fnv::of(name));
  return file_.parent_path() / noteName;
}

std::optional<network::HeaderFields> KeptFile::conditionFor(const foundation::Url& url) const {
  const auto text = foundation::readFile(note(), largestNote);
  std::error_code failure;
  if (!text || !fs::is_regular_file(file_, failure)) return std::nullopt;
  std::string_view lines = *text;
  const auto origin = takeLine(lines);
  const auto imprint = takeLine(lines);
  const auto entityTag = takeLine(lines);
  const auto date = takeLine(lines);
  if (!date || origin != url.absoluteString() || imprint != imprintOf(file_)) return std::nullopt;
  network::HeaderFields condition;
  if (!entityTag->empty())
    condition.emplace_back("If-None-Match", *entityTag);
  else if (!date->empty())
    condition.emplace_back("If-Modified-Since", *date);
  return condition;
}

foundation::Result<void> KeptFile::save(const foundation::Url& url,
                                        const network::HttpUrlResponse& response,
                                        std::string_view body) const {
  std::error_code problem;
  fs::create_directories(file_.parent_path(), problem);
  if (problem)
    return foundation::failure("file", problem.value(),
                               fmt::format("cannot create the folder {}: {}",
                                           file_.parent_path().string(), problem.message()));
  foundation::removeAbandonedFiles(file_.parent_path());
  if (auto written = foundation::writeFileAtomically(file_, body); !written) return written;
  // If the note cannot be written, the file is used only this time.
  foundation::writeFileAtomically(
      note(), fmt::format("{}\n{}\n{}\n{}\n", url.absoluteString(), imprintOf(body),
                          response.headerField("ETag").value_or(""),
                          response.headerField("Last-Modified").value_or("")));
  return {};
}

}  // namespace orivanta
