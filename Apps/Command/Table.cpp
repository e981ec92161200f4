#include "Apps/Command/Table.hpp"

#include <algorithm>

#include "Platform/Foundation/DisplayText.hpp"

namespace orivanta::command {

namespace {

std::string padded(const std::string& cell, std::size_t columns, Alignment alignment) {
  const std::size_t taken = foundation::displayWidth(cell);
  const std::string blanks(columns > taken ? columns - taken : 0, ' ');
  return alignment == Alignment::left ? cell + blanks : blanks + cell;
}

}  // namespace

std::string Table::text(std::size_t indentation) const {
  std::vector<std::size_t> widths(columns_.size(), 0);
  for (const auto& row : rows_)
    for (std::size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], foundation::displayWidth(row[i]));
  std::string lines;
  for (const auto& row : rows_) {
    std::string line(indentation, ' ');
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (i > 0) line += "  ";
      line += padded(row[i], widths[i], columns_[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    lines += line + '\n';
  }
  return lines;
}

}  // namespace orivanta::command
