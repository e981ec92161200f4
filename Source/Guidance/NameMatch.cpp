#include "Source/Guidance/NameMatch.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <numeric>

#include "Source/Guidance/TextFolding.hpp"

namespace orivanta {

namespace {

using CodePoints = std::vector<std::int32_t>;

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

// Returns whether `typed` becomes a prefix of `word` if at most this many letters are changed,
// added, removed or swapped with their neighbor (Damerau 1964, optimal string alignment).
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

// Short words allow no error; otherwise they would match nearly every name.
std::size_t mistakesAllowed(std::size_t letters) {
  if (letters < 4) return 0;
  return letters < 8 ? 1 : 2;
}

// Returns the search form of the word that people spell like this on a keyboard without umlauts.
std::string withUmlauts(std::string_view form) {
  std::string result;
  for (const char letter : form) {
    const bool follows =
        !result.empty() && (result.back() == 'a' || result.back() == 'o' || result.back() == 'u');
    if (letter != 'e' || !follows) result += letter;
  }
  return result;
}

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

// Removes the digits at the beginning of a text and returns them without leading zeros.
std::string_view takeNumber(std::string_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
  std::string_view digits = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(digits.size());
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

}  // namespace

TypedText::TypedText(std::string_view text) {
  const std::string form = searchForm(text);
  spellings_.push_back(spellingOf(form));
  if (std::string umlauts = withUmlauts(form); umlauts != form)
    spellings_.push_back(spellingOf(std::move(umlauts)));
}

TypedText::Spelling TypedText::spellingOf(std::string form) {
  Spelling spelling{std::move(form), {}};
  for (const std::string_view word : wordsOf(spelling.form))
    spelling.words.push_back({std::string(word), codePoints(word)});
  return spelling;
}

NameMatch TypedText::matchWord(std::string_view name, const std::vector<std::string_view>& words,
                               const Word& typed) {
  const auto anyWord = [&](const auto& fits) {
    return std::any_of(words.begin(), words.end(), fits);
  };
  if (anyWord([&](std::string_view word) { return word.starts_with(typed.text); }))
    return NameMatch::word;
  if (name.find(typed.text) != std::string_view::npos) return NameMatch::inside;
  const std::size_t mistakes = mistakesAllowed(typed.letters.size());
  const bool isNear = mistakes > 0 && anyWord([&](std::string_view word) {
                        return beginsNearly(typed.letters, codePoints(word), mistakes);
                      });
  return isNear ? NameMatch::near : NameMatch::none;
}

NameMatch TypedText::matchSpelling(std::string_view name,
                                   const std::vector<std::string_view>& words,
                                   const Spelling& typed) {
  if (name.starts_with(typed.form)) return NameMatch::beginning;
  NameMatch worst = NameMatch::word;
  for (const Word& word : typed.words) {
    worst = std::max(worst, matchWord(name, words, word));
    if (worst == NameMatch::none) break;
  }
  return worst;
}

NameMatch TypedText::match(std::string_view name) const {
  const auto words = wordsOf(name);
  NameMatch best = NameMatch::none;
  for (const Spelling& spelling : spellings_) {
    if (best == NameMatch::beginning) break;
    best = std::min(best, matchSpelling(name, words, spelling));
  }
  return best;
}

bool nameComesBefore(std::string_view left, std::string_view right) {
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

}  // namespace orivanta
