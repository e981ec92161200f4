// UTF-8 text on its way to people: without control characters, measured and clipped in columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orivanta::foundation {

struct Character {
  std::int32_t codePoint;  ///< negative for a damaged byte
  std::string_view bytes;  ///< into the text that it was read from
};

/// The character at the beginning of a text, which must not be empty.
Character firstCharacter(std::string_view text);

/// The number of terminal columns that the text takes: two for a wide character such as a Chinese
/// one, none for a combining mark.
std::size_t displayWidth(std::string_view text);

/// The text without anything that acts on a terminal. Line breaks and tabs become blanks; other
/// control characters and damaged bytes become U+FFFD. Byte order marks and characters that change
/// the direction of writing are removed.
std::string printable(std::string_view text);

/// The text, or as much of its beginning as fits into `columns` together with a final ellipsis.
std::string clipped(std::string_view text, std::size_t columns);

/// A text of unknown origin and length as part of a line for people: printable, and clipped to 80
/// columns.
std::string label(std::string_view text);

}  // namespace orivanta::foundation
