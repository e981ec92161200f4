#include "Platform/Foundation/DisplayText.hpp"

#include <utf8proc.h>

#include <algorithm>

#include "Platform/Foundation/TextControls.hpp"

namespace orivanta::foundation {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";
constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr std::size_t labelColumns = 80;

// A column takes no more bytes than this, so the rest of a huge text need not be read.
constexpr std::size_t mostBytesPerColumn = 64;

std::size_t widthOf(const Character& character) {
  if (character.codePoint < 0) return 1;
  return static_cast<std::size_t>(std::max(0, utf8proc_charwidth(character.codePoint)));
}

std::string_view printableForm(const Character& character) {
  if (character.codePoint < 0) return replacementCharacter;
  const auto point = static_cast<char32_t>(character.codePoint);
  if (isInvisibleControl(point)) return {};
  if (!isTerminalControl(point)) return character.bytes;
  const bool isBlank = point == U'\n' || point == U'\r' || point == U'\t' || point > 0xFF;
  return isBlank ? " " : replacementCharacter;
}

}  // namespace

Character firstCharacter(std::string_view text) {
  utf8proc_int32_t codePoint = -1;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto length =
      utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &codePoint);
  if (length <= 0) return {-1, text.substr(0, 1)};
  return {codePoint, text.substr(0, static_cast<std::size_t>(length))};
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    width += widthOf(character);
    text.remove_prefix(character.bytes.size());
  }
  return width;
}

std::string printable(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    result += printableForm(character);
    text.remove_prefix(character.bytes.size());
  }
  return result;
}

std::string clipped(std::string_view text, std::size_t columns) {
  std::size_t width = 0;
  std::size_t end = 0;      // of what has been read so far
  std::size_t fitting = 0;  // of what leaves a column free for the ellipsis
  while (end < text.size()) {
    const Character character = firstCharacter(text.substr(end));
    width += widthOf(character);
    if (width > columns) return std::string(text.substr(0, fitting)) + std::string(ellipsis);
    end += character.bytes.size();
    if (width < columns) fitting = end;
  }
  return std::string(text);
}

std::string label(std::string_view text) {
  return clipped(printable(text.substr(0, labelColumns * mostBytesPerColumn)), labelColumns);
}

}  // namespace orivanta::foundation
