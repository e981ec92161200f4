// Text made into pictures, in any script.
// Public header.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// How the lines of a text lie beside one another.
enum class TextAlignment {
  leading,  ///< each line starts where its paragraph's script starts
  centre    ///< each line is centered
};

/// How a text looks.
struct TextStyle {
  std::string fontFamily = "Sans";     ///< a family or an alias of Fontconfig
  double fontSize = 14.0;              ///< points
  bool bold = false;                   ///< whether the font is bold
  Color color = colors::black;         ///< of the glyphs
  Color outlineColor = colors::clear;  ///< of the line around each glyph
  double outlineWidth = 0.0;           ///< points around each glyph; 0 for none
  double maximumWidth = 0.0;           ///< points; longer lines break; 0 for no bound
  int maximumLines = 0;                ///< what does not fit ends in an ellipsis; 0 for no bound
  TextAlignment alignment = TextAlignment::centre;  ///< how the lines lie
  bool wholeLines = false;  ///< full line height, so that texts side by side share a baseline
};

/// A picture that just holds the text, its outline included, with `scale` pixels per point; null
/// for text without ink, such as blanks, and when it would be larger than a picture may be. A text
/// with too many lines gives up its own line breaks. Text is UTF-8; broken bytes show as
/// replacement characters, control characters as blanks, and what exceeds 10,000 bytes is left out.
/// Each paragraph runs in the direction of its first letter. Any thread.
ORIVANTA_API std::shared_ptr<const Image> makeTextImage(std::string_view text,
                                                        const TextStyle& style, double scale);

}  // namespace orivanta::graphics
