// Comparison of words in katakana with the Latin spelling of the same names.
// Private header.
#pragma once

#include <string>
#include <string_view>

namespace orivanta {

/// How a word sounds, roughly: its consonants without those that Japanese leaves out or does not
/// distinguish. "lotteria" and "ロッテリア" have the same sound.
struct SoundKey {
  std::string consonants;   ///< empty if the word is in neither script, or mixed
  char firstVowel = ' ';    ///< a, e, i, o or u; a blank if there is none
  bool isKatakana = false;  ///< otherwise Latin

  /// Whether the word has enough consonants to be recognized by them.
  bool isUsable() const;
};

/// Returns the sound of a word in its search form.
SoundKey soundOf(std::string_view word);

/// Returns whether a word, or several successive ones together, sound like a usable key of the
/// other script. `text` is in the search form.
bool soundsLike(const SoundKey& typed, std::string_view text);

}  // namespace orivanta
