#include "Apps/Viewer/Search.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

using CodePoints = std::vector<utf8proc_int32_t>;

CodePoints decomposed(std::string_view text) {
  const auto options = static_cast<utf8proc_option_t>(
      UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_COMPAT | UTF8PROC_CASEFOLD | UTF8PROC_IGNORE);
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size = static_cast<utf8proc_ssize_t>(text.size());
  const auto length = utf8proc_decompose(bytes, size, nullptr, 0, options);
  if (length <= 0) return {};
  CodePoints points(static_cast<std::size_t>(length));
  utf8proc_decompose(bytes, size, points.data(), length, options);
  return points;
}

// Accents, vowel points and tone marks combine in these classes; those below make other letters.
bool isLeftOut(utf8proc_int32_t point) { return utf8proc_get_property(point)->combining_class > 9; }

bool isPartOfWord(utf8proc_int32_t point) {
  switch (utf8proc_category(point)) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_MN:
    case UTF8PROC_CATEGORY_MC:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_NO:
      return true;
    default:
      return false;
  }
}

// An apostrophe joins what it separates: "Joe's" is found as "joes".
bool isJoiner(utf8proc_int32_t point) {
  return point == '\'' || point == 0x2019 || point == 0x02BC;
}

void append(std::string& text, utf8proc_int32_t point) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const auto count = utf8proc_encode_char(point, bytes.data());
  text.append(reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(count));
}

std::vector<std::string_view> wordsOf(std::string_view text) {
  std::vector<std::string_view> words;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(' '), text.size());
    if (end > 0) words.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return words;
}

CodePoints codePoints(std::string_view text) {
  CodePoints points;
  while (!text.empty()) {
    utf8proc_int32_t point = -1;
    const auto read = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                       static_cast<utf8proc_ssize_t>(text.size()), &point);
    points.push_back(point);
    text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(read, 1)));
  }
  return points;
}

// The fewest letters to change, add, leave out or swap with their neighbour in `typed` so that it
// begins `word` (Damerau 1964, optimal string alignment).
std::size_t lettersWrong(const CodePoints& typed, const CodePoints& word) {
  const std::size_t columns = word.size() + 1;
  std::vector<std::size_t> beforeLast(columns);
  std::vector<std::size_t> last(columns);
  std::vector<std::size_t> row(columns);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= typed.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j < columns; ++j) {
      const bool isSame = typed[i - 1] == word[j - 1];
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (isSame ? 0U : 1U)});
      if (i > 1 && j > 1 && typed[i - 1] == word[j - 2] && typed[i - 2] == word[j - 1])
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast.swap(last);
    last.swap(row);
  }
  return *std::min_element(last.begin(), last.end());
}

// Short words allow no mistake, so that they do not find everything.
std::size_t mistakesAllowed(std::size_t letters) {
  if (letters < 4) return 0;
  return letters < 8 ? 1 : 2;
}

bool isNear(std::string_view typed, const std::vector<std::string_view>& words) {
  const CodePoints letters = codePoints(typed);
  return std::any_of(words.begin(), words.end(), [&](std::string_view word) {
    return lettersWrong(letters, codePoints(word)) <= mistakesAllowed(letters.size());
  });
}

Match matchWord(std::string_view name, const std::vector<std::string_view>& words,
                std::string_view typed) {
  if (std::any_of(words.begin(), words.end(), [&](auto word) { return word.starts_with(typed); }))
    return Match::word;
  if (name.find(typed) != std::string_view::npos) return Match::inside;
  return isNear(typed, words) ? Match::near : Match::none;
}

}  // namespace

std::string searchForm(std::string_view text) {
  std::string form;
  bool gap = false;
  for (const utf8proc_int32_t point : decomposed(text)) {
    if (isLeftOut(point) || isJoiner(point)) continue;
    if (!isPartOfWord(point)) {
      gap = !form.empty();
      continue;
    }
    if (gap) form += ' ';
    gap = false;
    append(form, point);
  }
  return form;
}

Match match(std::string_view name, std::string_view typed) {
  if (name.starts_with(typed)) return Match::beginning;
  const auto words = wordsOf(name);
  Match worst = Match::word;
  for (const std::string_view word : wordsOf(typed))
    worst = std::max(worst, matchWord(name, words, word));
  return worst;
}

SearchIndex::SearchIndex(const Venue& venue) {
  for (const auto& location : *venue.locations) {
    if (location->nodes.empty() && location->polygons.empty()) continue;
    Entry entry{location, searchForm(location->name.value_or("")), {}};
    for (const auto& category : location->categories)
      entry.categories.push_back(searchForm(category->name.value_or("")));
    entries_.push_back(std::move(entry));
  }
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const Entry& a, const Entry& b) { return a.name < b.name; });
}

// Names before categories before near misses.
int SearchIndex::rank(const Entry& entry, std::string_view typed) {
  constexpr int none = 100;
  const Match byName = match(entry.name, typed);
  if (byName < Match::near) return static_cast<int>(byName);
  for (const std::string& category : entry.categories)
    if (match(category, typed) <= Match::word) return 10;
  return byName == Match::near ? 20 : none;
}

std::vector<std::shared_ptr<Location>> SearchIndex::find(std::string_view typed,
                                                         std::size_t most) const {
  const std::string form = searchForm(typed);
  std::vector<std::pair<int, const Entry*>> ranked;
  for (const Entry& entry : entries_)
    if (const int place = rank(entry, form); place < 100) ranked.emplace_back(place, &entry);
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::shared_ptr<Location>> found;
  for (const auto& [place, entry] : ranked) {
    if (found.size() == most) break;
    found.push_back(entry->location);
  }
  return found;
}

}  // namespace orivanta::viewer
