#include "Apps/Server/VenuePackage.hpp"

#include <fmt/format.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <boost/json/object.hpp>
#include <boost/json/value.hpp>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

#include "Apps/Server/JsonText.hpp"
#include "Apps/Server/PackageError.hpp"
#include "Apps/Server/UrlText.hpp"
#include "Apps/Text/JsonFault.hpp"
#include "Source/RawData.hpp"

namespace orivanta::server {

namespace fs = std::filesystem;
namespace json = boost::json;

namespace {

[[noreturn]] void refuse(const fs::path& file, std::string_view reason) {
  throw PackageError(fmt::format("{}: {}", file.string(), reason));
}

std::string contentsOf(const fs::path& file) {
  if (!fs::exists(file)) refuse(file, "the file is missing");
  if (!fs::is_regular_file(file)) refuse(file, "not a file");
  std::ifstream stream(file, std::ios::binary);
  std::string contents{std::istreambuf_iterator<char>(stream), {}};
  if (!stream) refuse(file, "the file cannot be read");
  return contents;
}

struct JsonFile {
  std::string text;
  std::shared_ptr<const json::value> value;
};

JsonFile readJson(const fs::path& file) {
  JsonFile read{contentsOf(file), nullptr};
  if (const auto data = RawData::parse(read.text)) read.value = data->data();
  if (!read.value) refuse(file, "not JSON: " + text::jsonFault(read.text).description());
  return read;
}

std::string requiredText(const fs::path& file, const json::object& venue, std::string_view key) {
  const json::value* value = venue.if_contains(key);
  if (value == nullptr || !value->is_string())
    refuse(file, fmt::format("the venue has no string \"{}\"", key));
  return std::string(value->get_string());
}

void readVenue(const fs::path& file, VenuePackage& package) {
  JsonFile read = readJson(file);
  if (!read.value->is_object()) refuse(file, "not an object");
  requiredText(file, read.value->get_object(), "id");
  package.slug = requiredText(file, read.value->get_object(), "slug");
  if (package.slug.empty() || package.slug == "." || package.slug == "..")
    refuse(file, fmt::format("the slug \"{}\" cannot be part of a URL", package.slug));
  package.venue = std::move(read.text);
}

void readCollection(const fs::path& file, std::string_view filesPath,
                    RecordCollection& collection) {
  const JsonFile read = readJson(file);
  if (!read.value->is_array()) refuse(file, "not an array");
  for (const std::string_view record : jsonElements(read.text))
    collection.append(record, filesPath);
}

bool isPackage(const fs::path& folder) { return fs::exists(folder / "venue.json"); }

std::vector<fs::path> packagesIn(const fs::path& folder) {
  if (!fs::is_directory(folder)) refuse(folder, "no such folder");
  if (isPackage(folder)) return {folder};
  std::vector<fs::path> packages;
  for (const auto& entry : fs::directory_iterator(folder))
    if (isPackage(entry.path())) packages.push_back(entry.path());
  if (packages.empty())
    refuse(folder, "neither a venue package (no venue.json) nor a folder that contains one");
  std::sort(packages.begin(), packages.end());
  return packages;
}

}  // namespace

std::string VenuePackage::filesPath() const {
  return fmt::format("/1/files/{}/", percentEncoded(slug));
}

const RecordCollection* VenuePackage::collection(std::string_view name) const {
  const auto entry = std::find(collectionNames.begin(), collectionNames.end(), name);
  if (entry == collectionNames.end()) return nullptr;
  return &collections[static_cast<std::size_t>(entry - collectionNames.begin())];
}

VenuePackage readPackage(const fs::path& folder) {
  static std::atomic<std::uint64_t> lastNumber = 0;
  VenuePackage package;
  package.number = ++lastNumber;
  package.source = folder;
  package.version = packageVersion(folder);  // read first, so that later changes are noticed
  package.folder = fs::canonical(folder);
  readVenue(folder / "venue.json", package);
  for (std::size_t index = 0; index < collectionNames.size(); ++index)
    readCollection(folder / fmt::format("{}.json", collectionNames[index]), package.filesPath(),
                   package.collections[index]);
  return package;
}

std::string packageVersion(const fs::path& folder) {
  std::string version;
  const auto add = [&](const std::string& name) {
    struct stat status {};
    if (::stat((folder / name).c_str(), &status) != 0) return false;
    version += fmt::format("{:x}-{:x}-{:x}-{:x}.{:x} ", status.st_dev, status.st_ino,
                           status.st_size, status.st_ctim.tv_sec, status.st_ctim.tv_nsec);
    return true;
  };
  bool isComplete = add("venue.json");
  for (const std::string_view name : collectionNames)
    isComplete = isComplete && add(fmt::format("{}.json", name));
  return isComplete ? version : std::string();
}

std::vector<VenuePackage> readPackages(const std::vector<fs::path>& folders) {
  std::vector<VenuePackage> packages;
  std::map<std::string, fs::path> foldersBySlug;
  for (const fs::path& folder : folders) {
    for (const fs::path& packageFolder : packagesIn(folder)) {
      packages.push_back(readPackage(packageFolder));
      const std::string& slug = packages.back().slug;
      const auto [entry, isNew] = foldersBySlug.emplace(slug, packageFolder);
      if (!isNew)
        refuse(packageFolder,
               fmt::format("the slug \"{}\" is also used by {}", slug, entry->second.string()));
    }
  }
  return packages;
}

}  // namespace orivanta::server
