// Draws texts on the page's 2D canvas.
#include "Platform/Graphics/Text.hpp"

#include <array>

#include "Platform/Graphics/Canvas/PageFunctions.hpp"
#include "Platform/Graphics/TextLimits.hpp"

namespace orivanta::graphics {

namespace {

// In the order of `readStyle` in web/src/platform/layout.ts.
std::array<double, 16> numbersOf(const TextStyle& style, double scale) {
  const auto& [red, green, blue, alpha] = style.color;
  const auto& [outlineRed, outlineGreen, outlineBlue, outlineAlpha] = style.outlineColor;
  return {style.fontSize,
          style.bold ? 1.0 : 0.0,
          red,
          green,
          blue,
          alpha,
          outlineRed,
          outlineGreen,
          outlineBlue,
          outlineAlpha,
          style.outlineWidth,
          style.maximumWidth,
          static_cast<double>(style.maximumLines),
          style.alignment == TextAlignment::center ? 1.0 : 0.0,
          style.wholeLines ? 1.0 : 0.0,
          scale};
}

}  // namespace

std::shared_ptr<const Image> makeTextImage(std::string_view text, const TextStyle& style,
                                           double scale) {
  if (!canDrawText(style, scale)) return nullptr;
  text = truncatedText(text);
  const auto numbers = numbersOf(style, scale);
  std::array<std::uint32_t, 2> size{};
  if (orivantaDrawText(text.data(), text.size(), style.fontFamily.data(), style.fontFamily.size(),
                       numbers.data(), size.data()) == 0)
    return nullptr;
  return takeImage(size[0], size[1], scale);
}

Size measureText(std::string_view text, const TextStyle& style) {
  if (!canDrawText(style, 1.0)) return {};
  text = truncatedText(text);
  const auto numbers = numbersOf(style, 1.0);
  std::array<double, 2> size{};
  if (orivantaMeasureText(text.data(), text.size(), style.fontFamily.data(),
                          style.fontFamily.size(), numbers.data(), size.data()) == 0)
    return {};
  return {size[0], size[1]};
}

}  // namespace orivanta::graphics
