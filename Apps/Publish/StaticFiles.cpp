#include "Apps/Publish/StaticFiles.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

#include "Apps/Package/ReplacedFolder.hpp"
#include "Apps/Server/ClosureStore.hpp"
#include "Apps/Server/ContentNegotiation.hpp"
#include "Apps/Server/Gzip.hpp"
#include "Apps/Server/PackageFile.hpp"
#include "Apps/Server/PackageStore.hpp"
#include "Apps/Server/UrlText.hpp"

namespace orivanta::publish {

namespace fs = std::filesystem;
using package::ReplacedFolder;
using server::RecordCollection;
using server::VenuePackage;
using PackagePointer = std::shared_ptr<const VenuePackage>;

namespace {

constexpr std::string_view defaultLanguage = "default";

bool isLetterOrDigit(char character) {
  return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
         (character >= 'A' && character <= 'Z');
}

// Slugs and languages become names of folders and parts of patterns for nginx.
void requireSlug(const std::string& slug) {
  const bool usable = isLetterOrDigit(slug.front()) && slug != "1" && slug != "nginx" &&
                      std::all_of(slug.begin(), slug.end(), [](char character) {
                        return isLetterOrDigit(character) ||
                               std::string_view("-._~").find(character) != std::string_view::npos;
                      });
  if (!usable)
    throw PublishError(
        fmt::format("the slug \"{}\" cannot be published: it must consist of letters "
                    "A to Z, digits, \"-\", \".\", \"_\" and \"~\", begin with a letter or a "
                    "digit, and not be \"1\" or \"nginx\"",
                    slug));
}

bool isLanguage(std::string_view tag) {
  return tag != defaultLanguage && tag.size() <= 35 && isLetterOrDigit(tag.front()) &&
         isLetterOrDigit(tag.back()) && std::all_of(tag.begin(), tag.end(), [](char character) {
           return isLetterOrDigit(character) || character == '-';
         });
}

// Returns the path of the URL, such as "/maps", and removes slashes at the end of the URL.
std::string pathOf(std::string& baseUrl) {
  while (baseUrl.ends_with('/')) baseUrl.pop_back();
  const std::size_t host = baseUrl.find("://");
  const std::size_t slash = host == std::string::npos ? host : baseUrl.find('/', host + 3);
  std::string path = slash == std::string::npos ? std::string() : baseUrl.substr(slash);
  const bool usable = std::all_of(path.begin(), path.end(), [](char character) {
    return isLetterOrDigit(character) ||
           std::string_view("/-._~").find(character) != std::string_view::npos;
  });
  if (!server::isOrigin(baseUrl.substr(0, slash)) || !usable)
    throw PublishError(
        fmt::format("\"{}\" is not a usable base URL; write it as https://maps.example or "
                    "https://cdn.example/maps",
                    baseUrl));
  return path;
}

// Returns an absolute path without symbolic links or a slash at the end.
fs::path replaceable(const fs::path& folder, const std::vector<PackagePointer>& packages) try {
  fs::path target = ReplacedFolder::checked(folder, "publish");
  for (const PackagePointer& package : packages)
    if (std::mismatch(target.begin(), target.end(), package->folder.begin(), package->folder.end())
            .first == target.end())
      throw PublishError(package->folder.string() + ": a package in the folder that is replaced");
  return target;
} catch (const PublishError&) {
  throw;
} catch (const std::runtime_error& error) {
  throw PublishError(error.what());
}

class Writer {
 public:
  Writer(ReplacedFolder& folder, std::string baseUrl)
      : folder_(folder), baseUrl_(std::move(baseUrl)) {}

  void writeVenue(const VenuePackage& package) {
    requireSlug(package.slug);
    RecordCollection venue;
    venue.append(package.venue, package.filesPath());
    const auto closures = server::ClosureStore(nullptr).current(package);
    std::vector<std::pair<std::string_view, const RecordCollection*>> collections = {
        {"venue", &venue}};
    for (const std::string_view name : server::collectionNames)
      collections.emplace_back(name, package.collection(name));
    if (closures) collections.emplace_back("closure", &closures->records);
    std::set<std::string> languages;
    for (const auto& [name, records] : collections) addLanguages(*records, languages);
    PublishedVenue published{package.slug, {languages.begin(), languages.end()}};
    writeLanguages(package, collections, published);
    writeFiles(package);
    result.venues.push_back(std::move(published));
  }

  std::vector<std::string> writeList(const RecordCollection& venues) {
    std::set<std::string> languages;
    addLanguages(venues, languages);
    writePage("1/venues/default", venues, defaultLanguage);
    for (const std::string& language : languages)
      writePage(fs::path("1/venues") / language, venues, language);
    return {languages.begin(), languages.end()};
  }

  Publication result;

 private:
  static void addLanguages(const RecordCollection& records, std::set<std::string>& languages) {
    for (const std::string& language : records.languages())
      if (!language.empty() && isLanguage(language)) languages.insert(language);
  }

  void writeLanguages(
      const VenuePackage& package,
      const std::vector<std::pair<std::string_view, const RecordCollection*>>& collections,
      const PublishedVenue& published) {
    std::vector<std::string> folders = {std::string(defaultLanguage)};
    folders.insert(folders.end(), published.languages.begin(), published.languages.end());
    for (const std::string& language : folders)
      for (const auto& [name, records] : collections)
        writePage(fs::path(package.slug) / language / "1" / name, *records, language);
  }

  void writePage(const fs::path& name, const RecordCollection& records, std::string_view language) {
    const auto tags = language == defaultLanguage ? std::vector<std::string>()
                                                  : server::languagesToLookUp(language);
    write(name, records.page(0, records.size(), baseUrl_, records.languagesAmong(tags)), true);
  }

  // The server serves the same files, except those of the records.
  void writeFiles(const VenuePackage& package) {
    std::vector<fs::path> names;
    for (auto entry = fs::recursive_directory_iterator(package.folder);
         entry != fs::recursive_directory_iterator(); ++entry)
      if (!entry->is_directory()) names.push_back(entry->path().lexically_relative(package.folder));
    std::sort(names.begin(), names.end());
    for (const fs::path& name : names)
      if (!isRecordFile(name)) writeFile(package, name);
  }

  static bool isRecordFile(const fs::path& name) {
    return !name.has_parent_path() &&
           (name == "venue.json" || name == "closure.json" ||
            std::any_of(server::collectionNames.begin(), server::collectionNames.end(),
                        [&](std::string_view collection) {
                          return name == fmt::format("{}.json", collection);
                        }));
  }

  void writeFile(const VenuePackage& package, const fs::path& name) {
    const std::vector<std::string> segments(name.begin(), name.end());
    std::error_code shortage;
    const auto file = server::PackageFile::open(package.folder, segments, shortage);
    if (shortage) throw std::runtime_error(name.string() + ": " + shortage.message());
    if (!file) return;  // the server would not serve it either
    std::string bytes(file->size(), '\0');
    if (file->read(0, bytes.data(), bytes.size()) != bytes.size())
      throw std::runtime_error((package.folder / name).string() + ": the file cannot be read");
    write(fs::path("1/files") / package.slug / name, bytes,
          server::mediaTypeOf(segments.back()).isText);
  }

  void write(const fs::path& name, std::string_view bytes, bool isText) {
    folder_.write(name, bytes);
    ++result.files;
    result.bytes += bytes.size();
    const std::string compressed = isText && bytes.size() >= server::smallestCompressed
                                       ? server::gzipped(bytes, server::GzipLevel::smallest)
                                       : std::string();
    if (!compressed.empty()) folder_.write(name.string() + ".gz", compressed);
    result.compressedBytes += compressed.empty() ? bytes.size() : compressed.size();
  }

  ReplacedFolder& folder_;
  const std::string baseUrl_;
};

}  // namespace

Publication publishVenues(const std::vector<PackagePointer>& packages, const fs::path& folder,
                          std::string baseUrl, const server::CrossOrigin& crossOrigin) {
  const std::string path = pathOf(baseUrl);
  ReplacedFolder replaced(replaceable(folder, packages), "publish");
  Writer writer(replaced, std::move(baseUrl));
  for (const PackagePointer& package : packages) writer.writeVenue(*package);
  const server::PackageSet set(packages);
  const auto languages = writer.writeList(set.venues);
  replaced.write("nginx/maps.conf", nginxMaps(writer.result.venues, languages, crossOrigin));
  replaced.write("nginx/locations.conf", nginxLocations(writer.result.venues, path, crossOrigin));
  replaced.write("nginx/page.conf", nginxPage());
  replaced.commit();
  return std::move(writer.result);
}

}  // namespace orivanta::publish
