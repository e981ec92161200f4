#include "Apps/Package/WrittenFiles.hpp"

#include <fmt/format.h>
#include <zlib.h>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "Apps/Package/TextFile.hpp"
#include "Platform/Foundation/Files.hpp"

namespace orivanta::package {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t largestList = 64U << 20U;
constexpr std::size_t largestFile = std::size_t{1} << 40U;
constexpr std::size_t digits = 8;  // of a checksum

std::optional<std::uint32_t> checksumOf(const fs::path& file) {
  const auto bytes = foundation::readBytes(file, largestFile);
  if (!bytes) return std::nullopt;
  const auto* data = reinterpret_cast<const Bytef*>(bytes->data.get());
  return static_cast<std::uint32_t>(crc32_z(0, data, bytes->count));
}

}  // namespace

WrittenFiles::WrittenFiles(std::string_view command)
    : listName_(fmt::format(".orivanta-{}", command)) {}

bool WrittenFiles::load(const fs::path& folder) {
  const auto text = foundation::readFile(folder / listName_, largestList);
  if (!text) return false;
  std::string_view rest = *text;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    std::uint32_t checksum = 0;
    if (line.size() < digits + 2) return false;
    const auto [end, error] = std::from_chars(line.data(), line.data() + digits, checksum, 16);
    if (error != std::errc() || end != line.data() + digits) return false;
    checksums_.emplace(line.substr(digits + 1), checksum);
  }
  return true;
}

void WrittenFiles::save(const fs::path& folder) {
  std::string text;
  for (const fs::path& name : filesIn(folder)) {
    const auto checksum = checksumOf(folder / name);
    if (!checksum) throw std::runtime_error(fmt::format("{}: cannot be read", name.string()));
    checksums_[name.string()] = *checksum;
    text += fmt::format("{:0{}x} {}\n", *checksum, digits, name.string());
  }
  writeFile(folder / listName_, text);
}

// Also symbolic links and special files, but not folders.
std::vector<fs::path> WrittenFiles::filesIn(const fs::path& folder) const {
  std::vector<fs::path> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_symlink() || !entry.is_directory())
      names.push_back(entry.path().lexically_relative(folder));
  std::erase(names, fs::path(listName_));
  std::sort(names.begin(), names.end());
  return names;
}

std::optional<std::string> WrittenFiles::changedIn(const fs::path& folder) const {
  for (const auto& [name, checksum] : checksums_) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(folder / name, error);
    if (!fs::exists(status)) continue;  // nothing to lose
    if (!fs::is_regular_file(status) || checksumOf(folder / name) != checksum) return name;
  }
  return std::nullopt;
}

std::vector<fs::path> WrittenFiles::othersIn(const fs::path& folder) const {
  std::vector<fs::path> names = filesIn(folder);
  std::erase_if(names, [&](const fs::path& name) { return checksums_.contains(name.string()); });
  return names;
}

}  // namespace orivanta::package
