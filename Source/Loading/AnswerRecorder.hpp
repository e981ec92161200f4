// Records the responses of one load, so that they can be stored.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orivanta {

/// The bodies of the pages of each collection, by its name in the API.
using StoredPages = std::map<std::string, std::vector<std::string>, std::less<>>;

/// Thread-safe.
class AnswerRecorder {
 public:
  /// Records at most `mostBytes` bytes. A load that has more is not complete.
  AnswerRecorder(std::size_t collections, std::size_t mostBytes)
      : collections_(collections), mostBytes_(mostBytes) {}

  /// Records a page of a collection. Only a JSON array with a status of success counts.
  void take(std::string_view collection, int statusCode, std::string_view body);

  /// Records that a collection has arrived.
  void end(std::string_view collection);

  /// Returns the pages, and forgets them. Returns nothing if a collection has failed or is missing.
  std::optional<StoredPages> pages();

 private:
  const std::size_t collections_;
  const std::size_t mostBytes_;
  std::mutex mutex_;  // guards the following members
  StoredPages pages_;
  std::size_t bytes_ = 0;
  std::size_t ended_ = 0;
  bool hasFailed_ = false;
};

}  // namespace orivanta
