#include "Apps/Command/Table.hpp"

#include <algorithm>

#include "Apps/Command/Text.hpp"

namespace orivanta::command {

std::string Table::text(std::size_t indentation) const {
  std::vector<std::size_t> widths(columns_.size(), 0);
  for (const auto& row : rows_)
    for (std::size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], displayWidth(row[i]));
  std::string lines;
  for (const auto& row : rows_) {
    std::string line(indentation, ' ');
    for (std::size_t i = 0; i < widths.size(); ++i) {
      if (i > 0) line += "  ";
      line += columns_[i] == Alignment::left ? paddedRight(row[i], widths[i])
                                             : paddedLeft(row[i], widths[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    lines += line + '\n';
  }
  return lines;
}

}  // namespace orivanta::command
