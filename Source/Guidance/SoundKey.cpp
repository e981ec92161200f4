#include "Source/Guidance/SoundKey.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace orivanta {

namespace {

constexpr std::size_t leastConsonants = 3;
constexpr std::size_t fewConsonants = 4;  // with fewer ones, the first vowels must be equal, too
constexpr std::size_t mostWords = 4;      // of a name that is one word in katakana

// For each character from U+30A1 on; "-" stands for none.
constexpr std::uint32_t firstKatakana = 0x30A1;
constexpr std::string_view consonantsOfKatakana =
    "----------kgkgkgkgkgsssssssssstdcs-tstdtdnnnnnhbphbpfbphbphbpmmmmm------rrrrr-----nb";
constexpr std::string_view vowelsOfKatakana =
    "aaiiuueeooaaiiuueeooaaiiuueeooaaii-uueeooaiueoaaaiiiuuueeeoooaiueoaauuooaiueoaaieo-u";
static_assert(consonantsOfKatakana.size() == vowelsOfKatakana.size());

constexpr std::uint32_t lengthMark = 0x30FC;
constexpr std::uint32_t voicedMark = 0x3099;  // search forms are decomposed
constexpr std::uint32_t halfVoicedMark = 0x309A;

bool isSmallVowel(std::uint32_t point) {
  return point >= firstKatakana && point < firstKatakana + 10 && (point - firstKatakana) % 2 == 0;
}

char voiced(char consonant) {
  switch (consonant) {
    case 'k':
      return 'g';
    case 't':
      return 'd';
    case 'c':
      return 's';
    case 'h':
    case 'f':
      return 'b';
    default:
      return consonant;
  }
}

// Removes the first character of a text of three bytes each and returns it, or nothing.
std::optional<std::uint32_t> takeThreeBytes(std::string_view& text) {
  if (text.size() < 3) return std::nullopt;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if ((byte(0) & 0xF0U) != 0xE0U) return std::nullopt;
  const std::uint32_t point =
      (byte(0) & 0x0FU) << 12U | (byte(1) & 0x3FU) << 6U | (byte(2) & 0x3FU);
  text.remove_prefix(3);
  return point;
}

void append(std::string& consonants, char next) {
  if ((next == 'b' || next == 'p' || next == 'm') && consonants.ends_with('n'))
    consonants.back() = 'm';
  consonants += next;
}

// Other characters may follow a long name in katakana, as in the names of exits.
SoundKey soundOfKatakana(std::string_view word) {
  SoundKey key;
  key.isKatakana = true;
  std::size_t vowels = 0;
  while (!word.empty()) {
    const auto point = takeThreeBytes(word);
    if (!point) return {};
    if (*point == lengthMark) continue;
    if (*point == voicedMark || *point == halfVoicedMark) {
      if (key.consonants.empty()) {
        key.consonants = "b";  // the vowel U with a mark
      } else {
        char& last = key.consonants.back();
        last = *point == voicedMark ? voiced(last) : 'p';
      }
      continue;
    }
    const std::size_t index = *point - firstKatakana;
    if (*point < firstKatakana || index >= vowelsOfKatakana.size())
      return key.consonants.size() >= leastConsonants ? key : SoundKey();
    const char vowel = vowelsOfKatakana[index];
    if (vowel != '-') {
      if (vowels == 0 || (vowels == 1 && isSmallVowel(*point))) key.firstVowel = vowel;
      ++vowels;
    }
    if (consonantsOfKatakana[index] != '-') append(key.consonants, consonantsOfKatakana[index]);
  }
  return key;
}

bool isVowel(char letter) {
  return std::string_view("aeiou").find(letter) != std::string_view::npos;
}

// Writes the consonants of a Latin word as Japanese hears them.
class LatinSound {
 public:
  explicit LatinSound(std::string_view word) : word_(word) {}

  SoundKey run() {
    for (at_ = 0; at_ < word_.size(); ++at_) {
      const char letter = word_[at_];
      if (letter < 'a' || letter > 'z') return {};
      if (isVowel(letter) && key_.firstVowel == ' ') key_.firstVowel = letter;
      const bool isDouble = at_ > 0 && word_[at_ - 1] == letter;
      if (!isDouble && !isVowel(letter)) add(letter);
    }
    return key_;
  }

 private:
  char next() const { return at_ + 1 < word_.size() ? word_[at_ + 1] : ' '; }
  bool isNextSoft() const { return next() == 'e' || next() == 'i' || next() == 'y'; }
  void put(char consonant) { append(key_.consonants, consonant); }

  // Puts a consonant that is written with two letters.
  void putPair(char consonant) {
    put(consonant);
    ++at_;
  }

  void add(char letter) {
    switch (letter) {
      case 'w':
      case 'y':
        return;
      case 'c':
        if (next() == 'h') return putPair('c');
        if (next() == 'k') return putPair('k');
        return put(isNextSoft() ? 's' : 'k');
      case 'q':
        return put('k');
      case 'x':
        put('k');
        return put('s');
      case 's':
        return next() == 'h' ? putPair('s') : put('s');
      case 'j':
      case 'z':
        return put('s');
      case 't':
        if (next() == 'h') return putPair('s');
        if (next() == 's' || next() == 'z') return putPair('t');
        return put(word_.substr(at_).starts_with("tion") ? 's' : 't');
      case 'p':
        return next() == 'h' ? putPair('f') : put('p');
      case 'l':
        return put('r');
      case 'v':
        return put('b');
      case 'r': {
        const char after = next() == 'r' && at_ + 2 < word_.size() ? word_[at_ + 2] : next();
        if (isVowel(after) || after == 'y') put('r');
        return;
      }
      default:
        put(letter);
    }
  }

  std::string_view word_;
  std::size_t at_ = 0;
  SoundKey key_;
};

bool areAlike(const SoundKey& one, const SoundKey& other) {
  const std::string& shorter =
      one.consonants.size() < other.consonants.size() ? one.consonants : other.consonants;
  const std::string& longer = &shorter == &one.consonants ? other.consonants : one.consonants;
  if (shorter.size() < fewConsonants)
    return shorter == longer && one.firstVowel == other.firstVowel;
  return longer.size() <= shorter.size() + 1 && longer.starts_with(shorter);
}

}  // namespace

bool SoundKey::isUsable() const { return consonants.size() >= leastConsonants; }

SoundKey soundOf(std::string_view word) {
  if (word.empty()) return {};
  return static_cast<unsigned char>(word.front()) < 0x80 ? LatinSound(word).run()
                                                         : soundOfKatakana(word);
}

bool soundsLike(const SoundKey& typed, std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    SoundKey joined;
    std::string_view following = rest;
    for (std::size_t i = 0; i < mostWords && !following.empty(); ++i) {
      const std::size_t end = std::min(following.find(' '), following.size());
      const SoundKey next = soundOf(following.substr(0, end));
      if (next.consonants.empty() || next.isKatakana == typed.isKatakana) break;
      if (i == 0) joined.firstVowel = next.firstVowel;
      joined.consonants += next.consonants;
      if (joined.isUsable() && areAlike(typed, joined)) return true;
      following.remove_prefix(std::min(end + 1, following.size()));
    }
    rest.remove_prefix(std::min(rest.find(' '), rest.size() - 1) + 1);
  }
  return false;
}

}  // namespace orivanta
