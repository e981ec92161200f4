// Lower case for identifiers of protocols, such as schemes, host names and language tags.
#pragma once

#include <string>

namespace orivanta::foundation {

/// The text with the letters A to Z replaced by a to z. All other bytes stay, whatever the locale.
inline std::string asciiLowercased(std::string text) {
  for (char& character : text)
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  return text;
}

}  // namespace orivanta::foundation
