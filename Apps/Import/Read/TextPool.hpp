// Keeps texts that many records of a source share, such as keys, categories and identifiers.
#pragma once

#include <boost/unordered/unordered_flat_set.hpp>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace orivanta::importer {

/// Keeps equal texts once, in a few large pieces of memory.
class TextPool {
 public:
  /// The text. The result is valid as long as the pool.
  std::string_view keep(std::string_view text);

  /// How much memory the texts take, apart from what finds them.
  std::size_t bytes() const { return bytes_; }

 private:
  boost::unordered_flat_set<std::string_view> texts_;
  std::vector<std::unique_ptr<char[]>> blocks_;
  char* free_ = nullptr;
  std::size_t left_ = 0;
  std::size_t bytes_ = 0;
};

}  // namespace orivanta::importer
