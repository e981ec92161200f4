#include "Apps/Command/Text.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "Platform/Foundation/TextControls.hpp"

namespace orivanta::command {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";
constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr std::size_t labelColumns = 80;

std::size_t widthOf(const Character& character) {
  if (character.codePoint < 0) return 1;
  return static_cast<std::size_t>(std::max(0, utf8proc_charwidth(character.codePoint)));
}

std::string_view printableForm(const Character& character) {
  if (character.codePoint < 0) return replacementCharacter;
  const auto point = static_cast<char32_t>(character.codePoint);
  if (foundation::isInvisibleControl(point)) return {};
  if (!foundation::isTerminalControl(point)) return character.bytes;
  const bool isBlank = point == U'\n' || point == U'\r' || point == U'\t' || point > 0xFF;
  return isBlank ? " " : replacementCharacter;
}

std::string blanks(std::size_t columns, std::size_t taken) {
  return std::string(columns > taken ? columns - taken : 0, ' ');
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
  std::size_t end = 0;      // of what has been read
  std::size_t fitting = 0;  // of what leaves a column for the ellipsis
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
  // A column takes no more than a few bytes, so the rest of a huge text need not be looked at.
  return clipped(printable(text.substr(0, labelColumns * 64)), labelColumns);
}

std::string caseFolded(std::string_view text) {
  utf8proc_uint8_t* folded = nullptr;
  const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE |
                                                      UTF8PROC_COMPAT | UTF8PROC_CASEFOLD);
  const auto length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                   static_cast<utf8proc_ssize_t>(text.size()), &folded, options);
  if (length < 0) return std::string(text);
  const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(folded, std::free);
  return {reinterpret_cast<const char*>(folded), static_cast<std::size_t>(length)};
}

std::string paddedRight(std::string_view text, std::size_t columns) {
  return std::string(text) + blanks(columns, displayWidth(text));
}

std::string paddedLeft(std::string_view text, std::size_t columns) {
  return blanks(columns, displayWidth(text)) + std::string(text);
}

}  // namespace orivanta::command
