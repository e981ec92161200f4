#include "Source/Guidance/NameMatch.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <utility>

#include "Source/Guidance/SoundKey.hpp"
#include "Source/Guidance/TextFolding.hpp"

namespace orivanta {

namespace {

using CodePoints = std::vector<std::int32_t>;

// Removes the first code point of a text and returns it.
std::int32_t takeCodePoint(std::string_view& text) {
  utf8proc_int32_t point = -1;
  const auto read = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                     static_cast<utf8proc_ssize_t>(text.size()), &point);
  text.remove_prefix(static_cast<std::size_t>(std::max<utf8proc_ssize_t>(read, 1)));
  return point;
}

CodePoints codePoints(std::string_view text) {
  CodePoints points;
  while (!text.empty()) points.push_back(takeCodePoint(text));
  return points;
}

constexpr std::size_t mostMistakes = 2;
constexpr std::size_t mostLetters = 32;  // of a typed word with mistakes

// Returns whether `typed` becomes a prefix of `word` if at most this many letters are changed,
// added, removed or swapped with their neighbor (Damerau 1964, optimal string alignment).
bool beginsNearly(const CodePoints& typed, std::string_view word, std::size_t mistakes) {
  using Row = std::array<std::size_t, mostLetters + mostMistakes + 1>;
  std::array<std::int32_t, mostLetters + mostMistakes> letters{};
  std::size_t count = 0;
  for (; count < typed.size() + mistakes && !word.empty(); ++count)
    letters[count] = takeCodePoint(word);
  const std::size_t columns = count + 1;
  if (columns + mistakes < typed.size() + 1) return false;
  std::array<Row, 3> rows{};
  Row* beforeLast = &rows[0];
  Row* last = &rows[1];
  Row* row = &rows[2];
  std::iota(last->begin(), last->begin() + static_cast<std::ptrdiff_t>(columns), std::size_t{0});
  std::size_t leastOfLast = 0;
  for (std::size_t i = 1; i <= typed.size(); ++i) {
    (*row)[0] = i;
    std::size_t least = i;
    for (std::size_t j = 1; j < columns; ++j) {
      const bool isSame = typed[i - 1] == letters[j - 1];
      std::size_t cost =
          std::min({(*last)[j] + 1, (*row)[j - 1] + 1, (*last)[j - 1] + (isSame ? 0U : 1U)});
      if (i > 1 && j > 1 && typed[i - 1] == letters[j - 2] && typed[i - 2] == letters[j - 1])
        cost = std::min(cost, (*beforeLast)[j - 2] + 1);
      (*row)[j] = cost;
      least = std::min(least, cost);
    }
    if (std::min(least, leastOfLast) > mistakes) return false;
    leastOfLast = least;
    std::swap(beforeLast, last);
    std::swap(last, row);
  }
  return leastOfLast <= mistakes;
}

// Short words allow no error; otherwise they would match nearly every name.
std::size_t mistakesAllowed(std::size_t letters) {
  if (letters < 4 || letters > mostLetters) return 0;
  return letters < 8 ? 1 : mostMistakes;
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

// Returns the bit of a letter. Latin letters and digits have bits of their own.
std::uint64_t bitOf(std::int32_t point) {
  unsigned index = 36U + static_cast<unsigned>(point) % 28U;
  if (point >= 'a' && point <= 'z') index = static_cast<unsigned>(point - 'a');
  if (point >= '0' && point <= '9') index = 26U + static_cast<unsigned>(point - '0');
  return std::uint64_t{1} << index;
}

constexpr std::uint64_t latinBits = (std::uint64_t{1} << 26U) - 1;
constexpr std::uint64_t plainBits = (std::uint64_t{1} << 36U) - 1;  // with digits

std::uint64_t lettersOf(std::string_view form) {
  std::uint64_t letters = 0;
  while (!form.empty())
    if (const std::int32_t point = takeCodePoint(form); point != ' ') letters |= bitOf(point);
  return letters;
}

std::size_t bitCount(std::uint64_t bits) { return static_cast<std::size_t>(std::popcount(bits)); }

// Returns the best match without mistakes.
WordMatch exactMatch(std::string_view text, std::string_view typed) {
  WordMatch best = WordMatch::none;
  for (std::size_t at = text.find(typed); at != std::string_view::npos;
       at = text.find(typed, at + 1)) {
    const std::size_t end = at + typed.size();
    const bool begins = at == 0 || text[at - 1] == ' ';
    if (begins && (end == text.size() || text[end] == ' ')) return WordMatch::whole;
    best = std::min(best, begins ? WordMatch::beginning : WordMatch::inside);
  }
  return best;
}

NameMatch nameMatchOf(WordMatch match) {
  switch (match) {
    case WordMatch::whole:
    case WordMatch::beginning:
      return NameMatch::word;
    case WordMatch::inside:
      return NameMatch::inside;
    case WordMatch::near:
      return NameMatch::near;
    case WordMatch::none:
      break;
  }
  return NameMatch::none;
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

SearchableText::SearchableText(std::string searchForm)
    : form(std::move(searchForm)), letters(lettersOf(form)) {}

TypedWord::TypedWord(std::string_view word)
    : sound_(std::make_shared<const SoundKey>(soundOf(word))) {
  auto spellings = spellingsOf(word);
  spellings_.reserve(spellings.size());
  for (std::string& each : spellings) spellings_.push_back(spellingOf(std::move(each)));
}

TypedWord::Spelling TypedWord::spellingOf(std::string text) {
  Spelling spelling;
  spelling.codePoints = codePoints(text);
  spelling.letters = lettersOf(text);
  spelling.mistakes = mistakesAllowed(spelling.codePoints.size());
  spelling.text = std::move(text);
  return spelling;
}

WordMatch TypedWord::match(const SearchableText& text, Mistakes mistakes) const {
  WordMatch best = WordMatch::none;
  for (const Spelling& spelling : spellings_)
    best = std::min(best, match(text, spelling, mistakes));
  return best == WordMatch::none && mistakes == Mistakes::few && soundsLike(text) ? WordMatch::near
                                                                                  : best;
}

bool TypedWord::soundsLike(const SearchableText& text) const {
  if (!sound_->isUsable()) return false;
  const bool hasOtherScript = (text.letters & (sound_->isKatakana ? latinBits : ~plainBits)) != 0;
  return hasOtherScript && orivanta::soundsLike(*sound_, text.form);
}

WordMatch TypedWord::match(const SearchableText& text, const Spelling& typed, Mistakes mistakes) {
  const std::uint64_t missing = typed.letters & ~text.letters;
  if (missing == 0) {
    const WordMatch exact = exactMatch(text.form, typed.text);
    if (exact != WordMatch::none) return exact;
  }
  // Each mistake explains at most one letter that the text lacks.
  if (mistakes == Mistakes::none || typed.mistakes == 0 || bitCount(missing) > typed.mistakes)
    return WordMatch::none;
  for (std::string_view rest = text.form; !rest.empty();) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    if (beginsNearly(typed.codePoints, rest.substr(0, end), typed.mistakes)) return WordMatch::near;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return WordMatch::none;
}

TypedText::TypedText(std::string_view text) : forms_(spellingsOf(searchForm(text))) {
  for (const std::string_view word : wordsOfForm(forms_.front())) words_.emplace_back(word);
}

NameMatch TypedText::match(std::string_view name) const {
  if (std::any_of(forms_.begin(), forms_.end(),
                  [&](const std::string& form) { return name.starts_with(form); }))
    return NameMatch::beginning;
  const SearchableText text{std::string(name)};
  NameMatch worst = NameMatch::word;
  for (const TypedWord& word : words_) {
    worst = std::max(worst, nameMatchOf(word.match(text)));
    if (worst == NameMatch::none) break;
  }
  return worst;
}

std::vector<std::string> spellingsOf(std::string_view form) {
  std::vector<std::string> spellings{std::string(form)};
  if (std::string umlauts = withUmlauts(form); umlauts != form)
    spellings.push_back(std::move(umlauts));
  return spellings;
}

std::vector<std::string_view> wordsOfForm(std::string_view form) {
  std::vector<std::string_view> words;
  while (!form.empty()) {
    const std::size_t end = std::min(form.find(' '), form.size());
    if (end > 0) words.push_back(form.substr(0, end));
    form.remove_prefix(std::min(end + 1, form.size()));
  }
  return words;
}

bool standsForWord(std::string_view beginning) {
  const CodePoints points = codePoints(beginning);
  if (points.empty()) return false;
  const std::int32_t first = points.front();
  if (first >= 0x0590 && first < 0x0900) return false;  // Hebrew, Arabic and related scripts
  return points.size() >= (first >= 0x2E80 && first < 0xAC00 ? 2U : 3U);  // kana and ideographs
}

bool isFormOf(std::string_view word, std::string_view singular) {
  if (!word.starts_with(singular)) return false;
  word.remove_prefix(singular.size());
  if (word.empty()) return true;
  constexpr std::string_view endings[] = {"s", "es", "e", "n", "en", "er", "x"};
  return std::find(std::begin(endings), std::end(endings), word) != std::end(endings) &&
         standsForWord(singular);
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
