// UTF-8 text as a terminal shows it, and text as people search it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orivanta::command {

struct Character {
  std::int32_t codePoint;  ///< negative for a damaged byte
  std::string_view bytes;
};

/// The character at the beginning of a text, which must not be empty.
Character firstCharacter(std::string_view text);

/// The columns that the text takes in a terminal: two for a wide character such as a Chinese one,
/// none for a combining mark.
std::size_t displayWidth(std::string_view text);

/// The text without what would act on a terminal: line breaks and tabs become blanks, other control
/// characters and damaged bytes become U+FFFD, and byte order marks and marks that change the
/// direction of writing are left out.
std::string printable(std::string_view text);

/// The text, or as much of its beginning as fits into `columns` together with a final ellipsis.
std::string clipped(std::string_view text, std::size_t columns);

/// A text of unknown origin and length on its way into a line for people: printable and clipped.
std::string label(std::string_view text);

/// The form in which texts are compared without regard to case (Unicode NFKC_Casefold): full-width
/// and half-width forms are equal too. Damaged UTF-8 stays as it is.
std::string caseFolded(std::string_view text);

/// The text with blanks after it (respectively before it) up to `columns`.
std::string paddedRight(std::string_view text, std::size_t columns);
std::string paddedLeft(std::string_view text, std::size_t columns);

}  // namespace orivanta::command
