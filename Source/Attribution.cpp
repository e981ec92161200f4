#include "Source/Attribution.hpp"

#include <cstddef>
#include <string_view>

#include "Platform/Foundation/TextControls.hpp"
#include "Source/RawData.hpp"
#include "Source/Venue.hpp"

namespace orivanta {

namespace {

constexpr std::size_t mostBytes = 1000;
constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr std::string_view separator = " \xC2\xB7 ";

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

std::string_view firstCharacter(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && isContinuation(text[length])) ++length;
  return text.substr(0, length);
}

// Returns the code point of a character of up to three bytes, which all control characters have.
// Returns '?' for any other.
char32_t shortCodePoint(std::string_view character) {
  const auto part = [&](std::size_t i) { return static_cast<unsigned char>(character[i]); };
  if (character.size() == 1) return part(0);
  if (character.size() == 2) return (part(0) & 0x1FU) << 6U | (part(1) & 0x3FU);
  if (character.size() == 3)
    return (part(0) & 0x0FU) << 12U | (part(1) & 0x3FU) << 6U | (part(2) & 0x3FU);
  return U'?';
}

std::string presentable(std::string_view text) {
  std::string result;
  bool gap = false;
  while (!text.empty()) {
    const std::string_view character = firstCharacter(text);
    text.remove_prefix(character.size());
    const char32_t point = shortCodePoint(character);
    if (foundation::isInvisibleControl(point)) continue;
    if (point == U' ' || foundation::isTerminalControl(point)) {
      gap = !result.empty();
      continue;
    }
    if (result.size() + (gap ? 1 : 0) + character.size() > mostBytes)
      return result.append(ellipsis);
    if (gap) result += ' ';
    gap = false;
    result += character;
  }
  return result;
}

}  // namespace

Attribution attributionOf(const Venue& venue) {
  const auto textOf = [&](const char* key) { return presentable(venue._data[key].stringValue()); };
  return {textOf("attribution"), textOf("license")};
}

std::string attributionText(const Venue& venue) {
  const auto [credit, license] = attributionOf(venue);
  if (credit.empty() || license.empty()) return credit + license;
  return credit + std::string(separator) + license;
}

}  // namespace orivanta
