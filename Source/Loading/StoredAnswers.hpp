// The content of an entry of a VenueStore: the responses of the web API.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/Loading/AnswerRecorder.hpp"
#include "Source/RawData.hpp"
#include "Source/VenueStorage.hpp"
#include "Source/WebApi.hpp"

namespace orivanta {

/// What distinguishes an entry from others. It contains no password, and of the user name only a
/// checksum.
class StoredIdentity {
 public:
  /// `slug` is empty for the list of venues.
  StoredIdentity(const WebApiSession& session, std::string_view slug);

  /// Returns a text that is a valid file name.
  std::string key() const;

  const std::string& text() const { return text_; }

 private:
  std::string text_;  // JSON
};

/// What was read from an entry.
class StoredAnswers {
 public:
  /// Returns nothing if the bytes are not an entry with this identity.
  static std::optional<StoredAnswers> in(std::string bytes, const StoredIdentity& identity);

  /// The record of the venue; has no value in a list of venues.
  const RawData& venue() const { return venue_; }

  /// The URLs of the files of the venue.
  const std::vector<std::string>& files() const { return files_; }

  /// Returns the pages of a collection.
  std::vector<std::string_view> pages(std::string_view collection) const;

 private:
  std::string bytes_;
  RawData venue_;
  std::vector<std::string> files_;
  std::vector<std::pair<std::string, std::pair<std::size_t, std::size_t>>> pages_;  // start, length
};

/// Returns the entry of a venue, with the names of the folders of its files.
VenueStorage::Entry entryOf(const StoredIdentity& identity, const Venue& venue,
                            const StoredPages& pages);

/// Returns the entry of a list of venues.
VenueStorage::Entry entryOf(const StoredIdentity& identity, const StoredPages& pages);

}  // namespace orivanta
