#include "Source/Loading/StoredAnswers.hpp"

#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <charconv>
#include <set>

#include "Platform/Foundation/Fnv.hpp"
#include "Source/CacheNames.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace json = boost::json;

namespace {

// The URLs of a venue's files, in the order of the records and without duplicates.
class FileList {
 public:
  explicit FileList(std::string slug) : slug_(std::move(slug)) {}

  void add(const std::string& text) {
    if (text.empty() || !known_.insert(text).second) return;
    const auto url = foundation::Url::parse(text);
    if (!url || !url->lastPathComponent() || defaultPort(*url).empty()) return;
    urls.emplace_back(text);
    folders.insert(cacheFolder(*url, slug_));
  }

  void add(const std::shared_ptr<const ImageCollection>& pictures) {
    if (pictures) add(pictures->original().absoluteString());
  }

  json::array urls;
  std::set<std::string> folders;

 private:
  const std::string slug_;
  std::set<std::string> known_;
};

FileList filesOf(const Venue& venue) {
  FileList files(venue.slug.value_or(""));
  files.add(venue.logo);
  files.add(venue.coverImage);
  if (venue.maps)
    for (const auto& map : *venue.maps) {
      const RawData scene = map->_data["scene"];
      files.add(scene["obj"].stringValue());
      files.add(scene["mtl"].stringValue());
      for (const RawData& image : scene["images"].arrayValue())
        files.add(image["url"].stringValue());
    }
  if (venue.locations)
    for (const auto& location : *venue.locations) {
      files.add(location->logo);
      files.add(location->picture);
    }
  return files;
}

// The bytes are the length of the head, a line break, the head, and the pages. The head is a JSON
// object with the collection and the length of each page.
std::string bytesOf(const StoredIdentity& identity, json::object head, const StoredPages& pages) {
  json::array lengths;
  for (const auto& [collection, bodies] : pages)
    for (const std::string& body : bodies)
      lengths.push_back(json::array{json::string(collection), body.size()});
  head["identity"] = identity.text();
  head["pages"] = std::move(lengths);
  const std::string text = json::serialize(head);
  std::string bytes = fmt::format("{}\n{}", text.size(), text);
  for (const auto& [collection, bodies] : pages)
    for (const std::string& body : bodies) bytes += body;
  return bytes;
}

// Returns the head of an entry and removes it from `rest`.
std::optional<RawData> takeHead(std::string_view& rest) {
  std::size_t length = 0;
  const auto [end, problem] = std::from_chars(rest.data(), rest.data() + rest.size(), length);
  rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
  if (problem != std::errc() || !rest.starts_with('\n') || rest.size() - 1 < length)
    return std::nullopt;
  auto head = RawData::parse(rest.substr(1, length));
  rest.remove_prefix(1 + length);
  return head;
}

}  // namespace

StoredIdentity::StoredIdentity(const WebApiSession& session, std::string_view slug) {
  const auto& root = session.ApiHttpSession.root;
  text_ = json::serialize(
      json::object{{"endpoint", root ? root->withoutCredentials().absoluteString() : ""},
                   {"language", session.ApiHttpSession.language},
                   {"user", fmt::format("{:016x}", foundation::Fnv::of(session.username()))},
                   {"slug", json::string(slug.data(), slug.size())}});
}

std::string StoredIdentity::key() const {
  return fmt::format("{:016x}", foundation::Fnv::of(text_));
}

std::optional<StoredAnswers> StoredAnswers::in(std::string bytes, const StoredIdentity& identity) {
  StoredAnswers answers;
  answers.bytes_ = std::move(bytes);
  std::string_view rest = answers.bytes_;
  const auto head = takeHead(rest);
  if (!head || (*head)["identity"].string() != identity.text()) return std::nullopt;
  answers.venue_ = (*head)["venue"];
  for (const RawData& file : (*head)["files"].arrayValue())
    answers.files_.push_back(file.stringValue());
  std::size_t start = answers.bytes_.size() - rest.size();
  for (const RawData& page : (*head)["pages"].arrayValue()) {
    const auto fields = page.arrayValue();
    if (fields.size() != 2) return std::nullopt;
    const double length = fields[1].double_().value_or(-1);
    if (!(length >= 0 && length <= static_cast<double>(answers.bytes_.size() - start)))
      return std::nullopt;
    answers.pages_.push_back({fields[0].stringValue(), {start, static_cast<std::size_t>(length)}});
    start += static_cast<std::size_t>(length);
  }
  return answers;
}

std::vector<std::string_view> StoredAnswers::pages(std::string_view collection) const {
  std::vector<std::string_view> found;
  for (const auto& [name, place] : pages_)
    if (name == collection)
      found.push_back(std::string_view(bytes_).substr(place.first, place.second));
  return found;
}

VenueStorage::Entry entryOf(const StoredIdentity& identity, const Venue& venue,
                            const StoredPages& pages) {
  FileList files = filesOf(venue);
  const auto& record = venue._data.data();
  return {bytesOf(identity,
                  {{"venue", record ? *record : json::value()}, {"files", std::move(files.urls)}},
                  pages),
          {files.folders.begin(), files.folders.end()}};
}

VenueStorage::Entry entryOf(const StoredIdentity& identity, const StoredPages& pages) {
  return {bytesOf(identity, {}, pages), {}};
}

}  // namespace orivanta
