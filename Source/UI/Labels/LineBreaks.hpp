// Breaks a name into lines for a label.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Platform/Foundation/Export.hpp"

namespace orivanta {

/// Returns the width of a text in points.
using TextWidth = std::function<double(std::string_view)>;

/// A text in lines of similar width.
struct LabelLines {
  std::vector<std::string> lines;  ///< without blanks at the ends
  double width = 0;                ///< of the widest line, points
};

/// Returns the parts of a text after each of which a line may end. Lines end after blanks, and
/// between two kana, kanji or other Han characters. They do not end before closing punctuation,
/// small kana or the prolonged sound mark, nor after an opening bracket. Grapheme clusters are
/// never divided. `text` is UTF-8; invalid bytes count as characters. Blanks at the ends are
/// removed. The parts refer to `text`. Any thread.
ORIVANTA_API std::vector<std::string_view> lineParts(std::string_view text);

/// Returns the text in one line, in two lines, and so on up to `most` lines, as far as it can be
/// broken. The widest line is as narrow as possible, but katakana words are broken only if that
/// makes lines clearly narrower, and no line of several is a single kana or Han character. The
/// result is empty if the text is blank. After the first 64 parts, the text is not broken. Calls
/// `width` for each part and each line. Any thread.
ORIVANTA_API std::vector<LabelLines> labelLines(std::string_view text, const TextWidth& width,
                                                int most = 3);

}  // namespace orivanta
