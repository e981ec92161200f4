// The built-in words that people type for kinds of places.
// Private header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "Source/Guidance/Kinds/PlaceKind.hpp"

namespace orivanta {

/// Which places the words of a row find.
enum class TopicScope {
  facility,   ///< the places of the kinds, which people rarely search by name
  passage,    ///< like `facility`, and places whose category contains one of the words
  emergency,  ///< emergency exits: places whose name or category contains one of the words
  kind,       ///< the places of the kinds
  named,      ///< places whose name or category contains one of the words and, last, the places of
              ///< the kinds
  narrowing   ///< the places of the kinds, if other words tell what is meant
};

/// A row of the table.
struct TopicRow {
  TopicScope scope;
  std::uint64_t kinds;                  ///< see `bit`
  std::vector<std::string_view> words;  ///< may consist of several words
};

/// The greatest number of rows.
inline constexpr std::size_t mostTopics = 64;

/// The bit of a kind in `TopicRow::kinds`.
constexpr std::uint64_t bit(PlaceKind kind) {
  return std::uint64_t{1} << static_cast<unsigned>(kind);
}
static_assert(placeKindCount <= 64);

/// Returns the rows of Resources/Words/topics.txt. Any thread.
std::span<const TopicRow> topicTable();

}  // namespace orivanta
