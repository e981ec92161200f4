// Rendering text of any script to images.
// Public header.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"

namespace orivanta::graphics {

/// The alignment of the lines of a text.
enum class TextAlignment {
  leading,  ///< each line starts where its paragraph's script starts
  center    ///< each line is centered
};

/// The appearance of a text.
struct TextStyle {
  std::string fontFamily = "Sans";     ///< a family or an alias of Fontconfig
  double fontSize = 14.0;              ///< points
  bool bold = false;                   ///< selects a bold font
  Color color = colors::black;         ///< of the glyphs
  Color outlineColor = colors::clear;  ///< of the line around each glyph
  double outlineWidth = 0.0;           ///< points; 0 for no outline
  double maximumWidth = 0.0;           ///< points; longer lines are wrapped; 0 for no limit
  int maximumLines = 0;                ///< further text becomes an ellipsis; 0 for no limit
  TextAlignment alignment = TextAlignment::center;  ///< of the lines
  bool wholeLines = false;  ///< uses the full line height, so that adjacent texts share a baseline
};

/// Returns the smallest image that contains the text and its outline, with `scale` pixels per
/// point. Returns null if the text has no visible glyphs (for example, only blanks) or if the image
/// would exceed the limits of `Image`. If the text has too many lines, its line breaks are ignored.
/// `text` is UTF-8. Invalid bytes appear as replacement characters and control characters as
/// blanks; bytes after the first 10,000 are ignored. The first letter of each paragraph determines
/// its direction. Any thread.
ORIVANTA_API std::shared_ptr<const Image> makeTextImage(std::string_view text,
                                                        const TextStyle& style, double scale);

/// Returns the size of the lines of a text in points, as `makeTextImage` lays them out: with the
/// full line height, without the outline. The image can be smaller, and parts of some glyphs lie
/// outside of the lines. Returns an empty size if no image can be made with this style. Much faster
/// than `makeTextImage`. Any thread.
ORIVANTA_API Size measureText(std::string_view text, const TextStyle& style);

}  // namespace orivanta::graphics
