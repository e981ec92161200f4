// Formats rows of cells in aligned columns.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orivanta::command {

enum class Alignment { left, right };

/// Two spaces separate columns, and no line ends in spaces. Cells must be single lines of text.
class Table {
 public:
  explicit Table(std::vector<Alignment> columns) : columns_(std::move(columns)) {}

  /// `cells` must have one element for each column.
  void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

  bool empty() const { return rows_.empty(); }

  /// Returns all rows as lines, each indented by `indentation` spaces.
  std::string text(std::size_t indentation = 0) const;

 private:
  std::vector<Alignment> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace orivanta::command
