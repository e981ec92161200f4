// Records of one collection, written out once at the start, from which pages are cut.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Source/Fwd.hpp"

namespace orivanta::server {

/// The JSON text of the records, with gaps where an answer depends on the request: the server's
/// origin in front of the records' files, and names that exist in several languages. Numbers and
/// texts are those of the package, character for character.
///
/// Filled by one thread; afterwards any number of threads may read.
class RecordCollection {
 public:
  /// Number of a language in `languages()`.
  using Language = std::size_t;

  /// Appends a record: any well-formed JSON value. `filesPath` is where the files of its package
  /// are served, such as "/1/files/mall/".
  void append(std::string_view record, std::string_view filesPath);

  std::size_t size() const { return starts_.size(); }

  /// The tags under which the records have names, in lower case, each once.
  const std::vector<std::string>& languages() const { return languages_; }

  /// Whether pages differ between origins: some record names a file of its package.
  bool dependsOnOrigin() const { return dependsOnOrigin_; }

  /// A JSON array of at most `count` records from the one at index `first`. `origin` is such as
  /// "http://localhost:8080"; `preferred` holds the languages that the client reads, best first.
  std::string page(std::size_t first, std::size_t count, std::string_view origin,
                   const std::vector<Language>& preferred) const;

 private:
  class Writer;
  struct Name {
    Language language;
    std::string text;  // what stands in the gap
  };
  // Stands for `length` characters of the text from `position`: for the origin if there are no
  // names, else for a name, or for the characters themselves when no name fits.
  struct Gap {
    std::size_t position;
    std::size_t length;
    std::vector<Name> names;
  };

  Language languageNumber(std::string_view tag);

  std::string text_;                 // records, each followed by a comma
  std::vector<std::size_t> starts_;  // of the records in the text
  std::vector<Gap> gaps_;            // by position
  std::vector<std::string> languages_;
  std::unordered_map<std::string, Language, TextHash> languageNumbers_;
  bool dependsOnOrigin_ = false;
};

}  // namespace orivanta::server
