// The forms in which all searches of the library compare names.
#pragma once

#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// Removes differences of case and width (Unicode NFKC_Casefold without the removal of ignorable
/// characters): "STRASSE" and "straße" become equal, and so do full-width and half-width forms.
/// Accents and punctuation are kept. Invalid UTF-8 is returned unchanged. Thread-safe.
ORIVANTA_API std::string caseFolded(std::string_view text);

/// Returns the search form of a text: case and width are folded, accents and apostrophes are
/// removed, and each run of characters that are neither letters nor digits becomes one space.
/// Letters with strokes and ligatures become plain letters ("ø" becomes "o", "œ" becomes "oe"), and
/// hiragana becomes katakana. In Arabic, vowel signs and tatweel are removed, ta marbuta becomes
/// ha, alef maksura becomes ya, letters with hamza become those without it, and digits become "0"
/// to "9". Marks that form another letter, as in Indic scripts, Thai and kana, are kept. Only the
/// first 300 bytes of the text are used. Returns an empty text for invalid UTF-8. Thread-safe.
ORIVANTA_API std::string searchForm(std::string_view text);

}  // namespace orivanta
