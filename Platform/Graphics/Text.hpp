// Text made into pictures, in any script.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

enum class TextAlignment {
  leading,  ///< each line from where its paragraph's script begins
  centre
};

struct TextStyle {
  std::string fontFamily = "Sans";
  double fontSize = 14.0;  ///< points
  bool bold = false;
  Color color = colors::black;
  Color outlineColor = colors::clear;
  double outlineWidth = 0.0;  ///< points around each glyph; 0 for none
  double maximumWidth = 0.0;  ///< points; longer lines break; 0 for no bound
  int maximumLines = 0;       ///< what does not fit ends in an ellipsis; 0 for no bound
  TextAlignment alignment = TextAlignment::centre;  ///< of the lines among themselves
  bool wholeLines = false;  ///< as high as its lines, so that texts side by side share a baseline
};

/// A picture that just holds the text, its outline included, with `scale` pixels per point; null
/// for text without ink, such as blanks, and when it would be larger than a picture may be. A text
/// with too many lines gives up its own line breaks. Text is UTF-8; broken bytes show as
/// replacement characters, control characters as blanks, and what exceeds 10,000 bytes is left out.
/// Each paragraph runs in the direction of its first letter. Any thread.
ORIVANTA_API std::shared_ptr<const Image> makeTextImage(std::string_view text,
                                                        const TextStyle& style, double scale);

}  // namespace orivanta::graphics
