#include "Source/Guidance/Kinds/SearchTopicTable.hpp"

#include <algorithm>
#include <array>

#include "Platform/Foundation/Fatal.hpp"
#include "Source/Guidance/Kinds/WordTable.hpp"

namespace orivanta {

namespace {

// In the order of `TopicScope`.
constexpr std::array<std::string_view, 6> scopes{"facility", "passage", "emergency",
                                                 "kind",     "named",   "narrowing"};

std::vector<TopicRow> readRows() {
  std::vector<TopicRow> rows;
  for (WordRow& read : wordTable("topics")) {
    const auto* const scope = std::find(scopes.begin(), scopes.end(), read.heading.front());
    TopicRow row{static_cast<TopicScope>(scope - scopes.begin()), 0, std::move(read.words)};
    for (auto kind = read.heading.begin() + 1; kind != read.heading.end(); ++kind)
      row.kinds |= bit(foundation::unwrap(placeKindNamed(*kind)));
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace

std::span<const TopicRow> topicTable() {
  static const std::vector<TopicRow> rows = readRows();
  return rows;
}

}  // namespace orivanta
