#include "Source/Guidance/Kinds/WordTable.hpp"

#include <algorithm>

#include "Platform/Foundation/Fatal.hpp"
#include "Platform/Foundation/ResourceBundle.hpp"

namespace orivanta {

/// The tables of words of the library; the build generates it.
const foundation::ResourceBundle& wordBundle();

namespace {

// Calls a function with each part of a text, without the blanks around it, that is not empty.
template <class Function>
void forEachPart(std::string_view text, char separator, const Function& function) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(separator, start), text.size());
    const std::string_view part = text.substr(start, end - start);
    if (const std::size_t first = part.find_first_not_of(' '); first != std::string_view::npos)
      function(part.substr(first, part.find_last_not_of(' ') + 1 - first));
    start = end + 1;
  }
}

}  // namespace

std::vector<WordRow> wordTable(std::string_view name) {
  const auto bytes = foundation::unwrap(wordBundle().bytes(name, "txt"));
  std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  std::vector<WordRow> rows;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.empty() || line.front() == '#') continue;
    if (line.front() != ' ') rows.emplace_back();
    auto& parts = line.front() == ' ' ? rows.back().words : rows.back().heading;
    forEachPart(line, line.front() == ' ' ? ',' : ' ',
                [&](std::string_view part) { parts.push_back(part); });
  }
  return rows;
}

}  // namespace orivanta
