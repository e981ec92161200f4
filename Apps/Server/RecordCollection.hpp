// The records of a collection, serialized once; pages are cut from the text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Source/Collections.hpp"

namespace orivanta::server {

/// The JSON text of the records. It has gaps for what depends on the request: the server's origin
/// in the URLs of files, and names that exist in several languages. Numbers and strings are kept
/// exactly as in the package.
///
/// Filled by one thread; afterwards any number of threads may read.
class RecordCollection {
 public:
  /// Index of a language in `languages()`.
  using Language = std::size_t;

  /// Appends a record, which may be any well-formed JSON value. `filesPath` is the path under which
  /// the files of its package are served, such as "/1/files/mall/".
  void append(std::string_view record, std::string_view filesPath);

  std::size_t size() const { return starts_.size(); }

  /// The language tags for which records have names, in lower case, without duplicates.
  const std::vector<std::string>& languages() const { return languages_; }

  /// The languages of the collection among these tags, which are in lower case, in the given order.
  std::vector<Language> languagesAmong(const std::vector<std::string>& tags) const;

  /// Whether pages depend on the origin because a record refers to a file of its package.
  bool dependsOnOrigin() const { return dependsOnOrigin_; }

  /// A JSON array of at most `count` records, starting at index `first`. `origin` is, for example,
  /// "http://localhost:8080"; `preferred` holds the client's languages, best first.
  std::string page(std::size_t first, std::size_t count, std::string_view origin,
                   const std::vector<Language>& preferred) const;

 private:
  class Writer;
  struct Name {
    Language language;
    std::string text;  // the text for the gap
  };
  // Replaces `length` characters of the text at `position`: by the origin if `names` is empty, or
  // else by a name. If no name matches, the characters stay.
  struct Gap {
    std::size_t position;
    std::size_t length;
    std::vector<Name> names;
  };

  Language languageNumber(std::string_view tag);

  std::string text_;                 // the records, each followed by a comma
  std::vector<std::size_t> starts_;  // positions of the records in the text
  std::vector<Gap> gaps_;            // ordered by position
  std::vector<std::string> languages_;
  std::unordered_map<std::string, Language, TextHash> languageNumbers_;
  bool dependsOnOrigin_ = false;
};

}  // namespace orivanta::server
