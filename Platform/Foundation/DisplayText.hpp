// Prepares UTF-8 text for display: removes control characters, measures and truncates in columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orivanta::foundation {

struct Character {
  std::int32_t codePoint;  ///< negative for an invalid byte
  std::string_view bytes;  ///< part of the original text
};

/// The first character of a text, which must not be empty.
Character firstCharacter(std::string_view text);

/// The number of terminal columns of a text. A wide character, such as a Chinese one, takes two,
/// and a combining mark none.
std::size_t displayWidth(std::string_view text);

/// Removes everything that controls a terminal. Line breaks and tabs become spaces. Other control
/// characters and invalid bytes become U+FFFD. Byte order marks and characters that change the
/// writing direction are removed.
std::string printable(std::string_view text);

/// The text, or its beginning with an ellipsis, in at most `columns` columns.
std::string clipped(std::string_view text, std::size_t columns);

/// Makes text from untrusted sources printable and truncates it to 80 columns.
std::string label(std::string_view text);

}  // namespace orivanta::foundation
