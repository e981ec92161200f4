// Rows of cells in aligned columns, for people.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orivanta::command {

enum class Alignment { left, right };

/// Two blanks stand between the columns, and no line ends in blanks. Cells are single-line texts.
class Table {
 public:
  explicit Table(std::vector<Alignment> columns) : columns_(std::move(columns)) {}

  /// `cells` has one element for each column.
  void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

  bool empty() const { return rows_.empty(); }

  /// All rows as lines, each after `indentation` blanks.
  std::string text(std::size_t indentation = 0) const;

 private:
  std::vector<Alignment> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace orivanta::command
