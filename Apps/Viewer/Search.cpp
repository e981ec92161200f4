#include "Apps/Viewer/Search.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <numeric>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

namespace {

using CodePoints = std::vector<utf8proc_int32_t>;

constexpr std::size_t mostBytes = 300;      // of a text that is compared
constexpr std::size_t mostCategories = 16;  // of a place
constexpr std::size_t stride = 256;         // places between two questions whether to go on

std::string_view beginningOf(std::string_view text) {
  if (text.size() <= mostBytes) return text;
  std::size_t end = mostBytes;
  while (end > mostBytes - 4 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80) --end;
  return text.substr(0, end);
}

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

// Whether at most so many letters of `typed` are to be changed, added, left out or swapped with
// their neighbor so that it begins `word` (Damerau 1964, optimal string alignment).
bool beginsNearly(const CodePoints& typed, const CodePoints& word, std::size_t mistakes) {
  const std::size_t columns = std::min(word.size(), typed.size() + mistakes) + 1;
  if (columns + mistakes < typed.size() + 1) return false;
  std::vector<std::size_t> beforeLast(columns, typed.size());
  std::vector<std::size_t> last(columns);
  std::vector<std::size_t> row(columns);
  std::iota(last.begin(), last.end(), std::size_t{0});
  std::size_t leastOfLast = 0;
  for (std::size_t i = 1; i <= typed.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j < columns; ++j) {
      const bool isSame = typed[i - 1] == word[j - 1];
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (isSame ? 0U : 1U)});
      if (i > 1 && j > 1 && typed[i - 1] == word[j - 2] && typed[i - 2] == word[j - 1])
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    const std::size_t least = *std::min_element(row.begin(), row.end());
    if (std::min(least, leastOfLast) > mistakes) return false;
    leastOfLast = least;
    beforeLast.swap(last);
    last.swap(row);
  }
  return leastOfLast <= mistakes;
}

// Short words allow no mistake, so that they do not find everything.
std::size_t mistakesAllowed(std::size_t letters) {
  if (letters < 4) return 0;
  return letters < 8 ? 1 : 2;
}

struct TypedWord {
  std::string_view text;
  CodePoints letters;
};

std::vector<TypedWord> typedWords(std::string_view typed) {
  std::vector<TypedWord> words;
  for (const std::string_view word : wordsOf(typed)) words.push_back({word, codePoints(word)});
  return words;
}

bool isNear(const TypedWord& typed, const std::vector<std::string_view>& words) {
  const std::size_t mistakes = mistakesAllowed(typed.letters.size());
  return mistakes > 0 && std::any_of(words.begin(), words.end(), [&](std::string_view word) {
           return beginsNearly(typed.letters, codePoints(word), mistakes);
         });
}

Match matchWord(std::string_view name, const std::vector<std::string_view>& words,
                const TypedWord& typed) {
  if (std::any_of(words.begin(), words.end(),
                  [&](auto word) { return word.starts_with(typed.text); }))
    return Match::word;
  if (name.find(typed.text) != std::string_view::npos) return Match::inside;
  return isNear(typed, words) ? Match::near : Match::none;
}

Match matchWords(std::string_view name, std::string_view typed,
                 const std::vector<TypedWord>& typedWords) {
  if (name.starts_with(typed)) return Match::beginning;
  const auto words = wordsOf(name);
  Match worst = Match::word;
  for (const TypedWord& word : typedWords) {
    worst = std::max(worst, matchWord(name, words, word));
    if (worst == Match::none) break;
  }
  return worst;
}

std::string_view textOf(const std::optional<std::string>& name) {
  return name ? std::string_view(*name) : std::string_view();
}

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

// Takes the digits from the beginning of a text; without zeros before them.
std::string_view takeNumber(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

}  // namespace

std::string searchForm(std::string_view text) {
  std::string form;
  bool gap = false;
  for (const utf8proc_int32_t point : decomposed(beginningOf(text))) {
    if (form.size() >= mostBytes) break;
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

bool comesBefore(std::string_view left, std::string_view right) {
  while (!left.empty() && !right.empty()) {
    if (isDigit(left.front()) && isDigit(right.front())) {
      const std::string_view number = takeNumber(left);
      const std::string_view other = takeNumber(right);
      if (number.size() != other.size()) return number.size() < other.size();
      if (number != other) return number < other;
    } else if (left.front() != right.front()) {
      return static_cast<unsigned char>(left.front()) < static_cast<unsigned char>(right.front());
    } else {
      left.remove_prefix(1);
      right.remove_prefix(1);
    }
  }
  return left.empty() && !right.empty();
}

Match match(std::string_view name, std::string_view typed) {
  return matchWords(name, typed, typedWords(typed));
}

struct SearchIndex::Query {
  explicit Query(std::string_view typed) : form(searchForm(typed)), words(typedWords(form)) {}

  const std::string form;
  const std::vector<TypedWord> words;  // of the form
  std::vector<bool> categories;        // whether each answers
};

SearchIndex::SearchIndex(const std::vector<std::shared_ptr<Location>>& places,
                         const IsCancelled& isCancelled) {
  std::unordered_map<const Category*, std::size_t> known;
  const auto indexOf = [&](const Category& category) {
    const auto [entry, isNew] = known.try_emplace(&category, categories_.size());
    if (isNew) {
      const std::string_view name = beginningOf(textOf(category.name));
      categories_.push_back({searchForm(name), std::string(name)});
    }
    return entry->second;
  };
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (i % stride == 0 && isCancelled()) return;
    const Location& place = *places[i];
    if (place.nodes.empty() && place.polygons.empty()) continue;
    Entry entry{places[i], searchForm(textOf(place.name)), {}};
    for (const auto& category : place.categories) {
      if (entry.categories.size() == mostCategories) break;
      entry.categories.push_back(indexOf(*category));
    }
    entries_.push_back(std::move(entry));
  }
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const Entry& a, const Entry& b) { return comesBefore(a.name, b.name); });
  byCategory_.resize(entries_.size());
  std::iota(byCategory_.begin(), byCategory_.end(), std::size_t{0});
  const auto groupOf = [this](std::size_t index) -> const CategoryEntry* {
    const auto& own = entries_[index].categories;
    return own.empty() ? nullptr : &categories_[own.front()];
  };
  std::stable_sort(byCategory_.begin(), byCategory_.end(), [&](std::size_t a, std::size_t b) {
    const CategoryEntry* const left = groupOf(a);
    const CategoryEntry* const right = groupOf(b);
    if (left == nullptr || right == nullptr) return left != nullptr && right == nullptr;
    if (comesBefore(left->name, right->name)) return true;
    if (comesBefore(right->name, left->name)) return false;
    return std::tie(left->name, left->title) < std::tie(right->name, right->title);
  });
}

std::vector<PlaceGroup> SearchIndex::byCategory() const {
  std::vector<PlaceGroup> groups;
  for (const std::size_t index : byCategory_) {
    const Entry& entry = entries_[index];
    const std::string title =
        entry.categories.empty() ? "" : categories_[entry.categories.front()].title;
    if (groups.empty() || groups.back().title != title) groups.push_back({title, {}});
    groups.back().places.push_back(entry.place);
  }
  return groups;
}

// Names before categories before near misses.
int SearchIndex::rank(const Entry& entry, const Query& query) const {
  constexpr int none = 100;
  const Match byName = matchWords(entry.name, query.form, query.words);
  if (byName < Match::near) return static_cast<int>(byName);
  for (const std::size_t category : entry.categories)
    if (query.categories[category]) return 10;
  return byName == Match::near ? 20 : none;
}

std::vector<PlaceGroup> SearchIndex::find(std::string_view typed,
                                          const IsCancelled& isCancelled) const {
  Query query(typed);
  if (query.form.empty()) return byCategory();
  for (const CategoryEntry& category : categories_)
    query.categories.push_back(matchWords(category.name, query.form, query.words) <= Match::word);
  std::vector<std::pair<int, const Entry*>> ranked;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i % stride == 0 && isCancelled()) return {};
    if (const int place = rank(entries_[i], query); place < 100)
      ranked.emplace_back(place, &entries_[i]);
  }
  std::stable_sort(ranked.begin(), ranked.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  if (ranked.empty()) return {};
  PlaceGroup found;
  for (const auto& [place, entry] : ranked) found.places.push_back(entry->place);
  return {std::move(found)};
}

}  // namespace orivanta::viewer
