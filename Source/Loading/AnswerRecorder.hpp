// Records the responses of one load, so that they can be stored.
#pragma once

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "Source/Loading/StoredAnswers.hpp"

namespace orivanta {

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
