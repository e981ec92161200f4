// Tells in which line of a text something is.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace orivanta::importer {

/// Counts lines up to positions that are not descending.
class TextLines {
 public:
  explicit TextLines(std::string_view text) : text_(text) {}

  std::size_t at(std::size_t offset) {
    const auto from = text_.begin() + static_cast<std::ptrdiff_t>(counted_);
    counted_ = std::max(counted_, std::min(offset, text_.size()));
    const auto to = text_.begin() + static_cast<std::ptrdiff_t>(counted_);
    line_ += static_cast<std::size_t>(std::count(from, to, '\n'));
    return line_;
  }

 private:
  std::string_view text_;
  std::size_t counted_ = 0;
  std::size_t line_ = 1;
};

}  // namespace orivanta::importer
