// Forms of a text in which names are compared, for every search in the library.
#pragma once

#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// The text without differences of case and width (Unicode NFKC_Casefold without the removal of
/// ignorable characters): "STRASSE" and "straße" become equal, and so do full-width and half-width
/// forms. Accents and punctuation stay. Damaged UTF-8 is returned unchanged. Any thread.
ORIVANTA_API std::string caseFolded(std::string_view text);

/// The text as people type it into a search field: case and width folded, without accents and
/// apostrophes, and with one blank for each run of other characters than letters and digits. Marks
/// that make another letter, as in Indic scripts, Thai and kana, stay. Only the first 300 bytes of
/// a text count. Damaged UTF-8 becomes an empty text. Any thread.
ORIVANTA_API std::string searchForm(std::string_view text);

}  // namespace orivanta
