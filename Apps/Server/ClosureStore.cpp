#include "Apps/Server/ClosureStore.hpp"

#include <atomic>
#include <boost/json/array.hpp>
#include <boost/json/value.hpp>
#include <optional>
#include <utility>
#include <vector>

#include "Apps/Server/JsonText.hpp"
#include "Apps/Server/PackageFile.hpp"
#include "Source/RawData.hpp"

namespace orivanta::server {

namespace {

constexpr std::uint64_t largestFile = 16U << 20U;

// Returns nothing if the text is not an array of objects with an identifier.
std::shared_ptr<const ClosureList> parse(const std::string& text, const VenuePackage& package) {
  const auto data = RawData::parse(text);
  if (!data || !data->data()->is_array()) return nullptr;
  std::vector<std::string> identifiers;
  for (const RawData& record : data->arrayValue()) {
    auto identifier = record["id"].string();
    if (!identifier) return nullptr;
    identifiers.push_back(std::move(*identifier));
  }
  auto list = std::make_shared<ClosureList>();
  for (const std::string_view record : jsonElements(text))
    list->records.append(record, package.filesPath());
  list->closures = guidance::Closures(std::move(identifiers));
  return list;
}

std::shared_ptr<const ClosureList> read(const PackageFile& file, const VenuePackage& package) {
  if (file.size() > largestFile) return nullptr;
  std::string text(file.size(), '\0');
  if (file.read(0, text.data(), text.size()) != text.size()) return nullptr;
  return parse(text, package);
}

}  // namespace

ClosureStore::ClosureStore(std::function<void(const std::string&)> report)
    : report_(std::move(report)) {}

std::shared_ptr<const ClosureList> ClosureStore::current(const VenuePackage& package) {
  static std::atomic<std::uint64_t> lastNumber = 0;
  std::error_code shortage;
  const auto file = PackageFile::open(package.folder, {"closure.json"}, shortage);
  const std::string version = file ? file->version() : std::string();
  const std::lock_guard lock(mutex_);
  Entry& entry = entries_[package.slug];
  if (shortage || (entry.list && entry.seenVersion == version)) return entry.list;
  auto list = file ? read(*file, package) : std::make_shared<const ClosureList>();
  entry.seenVersion = version;
  if (list) {
    auto numbered = std::make_shared<ClosureList>(*list);
    numbered->version = version;
    numbered->number = ++lastNumber;
    entry.list = std::move(numbered);
  } else {
    if (!entry.list) entry.list = std::make_shared<const ClosureList>();
    report((package.source / "closure.json").string() +
           ": not a list of closures, which is an array of objects with a string \"id\"; the "
           "previous list is still used");
  }
  return entry.list;
}

void ClosureStore::report(const std::string& line) const try {
  if (report_) report_(line);
} catch (...) {
  return;
}

}  // namespace orivanta::server
