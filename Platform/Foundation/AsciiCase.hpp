// Lowercase conversion for identifiers such as URL schemes, host names and language tags.
#pragma once

#include <string>

namespace orivanta::foundation {

/// Replaces the letters A to Z with a to z. All other bytes are kept, regardless of the locale.
inline std::string asciiLowercased(std::string text) {
  for (char& character : text)
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  return text;
}

}  // namespace orivanta::foundation
