// Lowercase conversion for identifiers such as URL schemes, host names and language tags.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace orivanta::foundation {

/// Returns a to z for the letters A to Z, and all other bytes as they are, regardless of the
/// locale.
inline char asciiLowercased(char character) {
  return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                              : character;
}

/// Replaces the letters A to Z with a to z. All other bytes are kept, regardless of the locale.
inline std::string asciiLowercased(std::string text) {
  for (char& character : text) character = asciiLowercased(character);
  return text;
}

/// Returns whether the texts are equal except for the case of the letters A to Z.
inline bool asciiEqualIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return asciiLowercased(a) == asciiLowercased(b); });
}

}  // namespace orivanta::foundation
