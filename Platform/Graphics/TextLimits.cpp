#include "Platform/Graphics/TextLimits.hpp"

#include <cmath>
#include <cstddef>

namespace orivanta::graphics {

namespace {

// At this scale, every length fits into the units of Pango.
constexpr double smallestScale = 1.0 / 64;

constexpr std::size_t mostTextBytes = 10'000;

bool isContinuationByte(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80; }

}  // namespace

bool canDrawText(const TextStyle& style, double scale) {
  const double largest = Image::maximumSide;
  return scale >= smallestScale && scale <= largest && style.fontSize > 0.0 &&
         style.fontSize * scale <= largest && style.outlineWidth >= 0.0 &&
         style.outlineWidth * scale <= largest / 4 && !std::isnan(style.maximumWidth);
}

std::string_view truncatedText(std::string_view text) {
  if (text.size() <= mostTextBytes) return text;
  std::size_t end = mostTextBytes;
  while (end > mostTextBytes - 4 && isContinuationByte(text[end])) --end;
  return text.substr(0, end);
}

}  // namespace orivanta::graphics
