#include "Platform/Foundation/ResourceBundle.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <system_error>

#include "Platform/Foundation/Files.hpp"

namespace orivanta::foundation {

namespace fs = std::filesystem;

namespace {

struct KnownBundles {
  std::mutex mutex;
  std::map<std::string_view, ResourceBundle> bundles;
};

KnownBundles& known() {
  static auto& instance = *new KnownBundles;
  return instance;
}

// The file is written atomically, so a file of the right length is complete.
bool isOnDisk(const Resource& resource, const fs::path& file) {
  std::error_code failure;
  const std::uintmax_t size = fs::file_size(file, failure);
  if (!failure && size == resource.bytes.size()) return true;
  const auto* bytes = reinterpret_cast<const char*>(resource.bytes.data());
  return writeFileAtomically(file, {bytes, resource.bytes.size()}).has_value();
}

}  // namespace

const ResourceBundle& ResourceBundle::add(std::string_view identifier, std::string_view version,
                                          std::span<const Resource> resources) {
  const std::lock_guard lock(known().mutex);
  return known()
      .bundles.try_emplace(identifier, ResourceBundle(identifier, version, resources))
      .first->second;
}

const ResourceBundle* ResourceBundle::find(std::string_view identifier) {
  const std::lock_guard lock(known().mutex);
  const auto entry = known().bundles.find(identifier);
  return entry == known().bundles.end() ? nullptr : &entry->second;
}

const Resource* ResourceBundle::resource(std::string_view fileName) const {
  const auto entry =
      std::find_if(resources_.begin(), resources_.end(),
                   [&](const Resource& candidate) { return candidate.fileName == fileName; });
  return entry == resources_.end() ? nullptr : &*entry;
}

std::optional<std::span<const std::uint8_t>> ResourceBundle::bytes(std::string_view name,
                                                                   std::string_view type) const {
  const Resource* const found = resource(fmt::format("{}.{}", name, type));
  if (found == nullptr) return std::nullopt;
  return found->bytes;
}

std::optional<fs::path> ResourceBundle::file(std::string_view name, std::string_view type) const {
  const Resource* const found = resource(fmt::format("{}.{}", name, type));
  const auto caches = cachesDirectory();
  if (found == nullptr || !caches) return std::nullopt;
  const fs::path folder = *caches / fmt::format("{}-{}", identifier_, version_);
  std::error_code failure;
  fs::create_directories(folder, failure);
  for (const Resource& each : resources_)
    if (!isOnDisk(each, folder / each.fileName)) return std::nullopt;
  return folder / found->fileName;
}

}  // namespace orivanta::foundation
