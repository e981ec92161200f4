// Letters of ASCII, whatever the language of the environment is.
#pragma once

#include <string>
#include <string_view>

namespace orivanta::text {

/// The text with small letters instead of A to Z.
inline std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower)
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  return lower;
}

}  // namespace orivanta::text
