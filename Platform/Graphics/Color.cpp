#include "Platform/Graphics/Color.hpp"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>

namespace orivanta::graphics {

namespace {

using NamedColor = std::pair<const char*, Color>;

constexpr std::array<NamedColor, 15> namedColors = {{
    {"black", colors::black},
    {"darkGray", colors::darkGray},
    {"lightGray", colors::lightGray},
    {"gray", colors::gray},
    {"white", colors::white},
    {"red", colors::red},
    {"green", colors::green},
    {"blue", colors::blue},
    {"cyan", colors::cyan},
    {"yellow", colors::yellow},
    {"magenta", colors::magenta},
    {"orange", colors::orange},
    {"purple", colors::purple},
    {"brown", colors::brown},
    {"clear", colors::clear},
}};

std::optional<Color> fromDigits(std::string_view digits) {
  if (digits.size() != 3 && digits.size() != 6 && digits.size() != 8) return std::nullopt;
  const std::size_t width = digits.size() == 3 ? 1 : 2;
  std::array<float, 4> components = {0, 0, 0, 1};
  for (std::size_t i = 0; i < digits.size() / width; ++i) {
    unsigned value = 0;
    for (std::size_t digit = 0; digit < 2; ++digit) {
      const char character = digits[i * width + std::min(digit, width - 1)];
      const std::size_t rank = std::string_view("0123456789abcdefABCDEF").find(character);
      if (rank == std::string_view::npos) return std::nullopt;
      value = value * 16 + static_cast<unsigned>(rank < 16 ? rank : rank - 6);
    }
    components[i] = static_cast<float>(value) / 255.0F;
  }
  return Color{components[0], components[1], components[2], components[3]};
}

}  // namespace

std::optional<Color> Color::parse(std::string_view text) {
  if (text.starts_with('#')) return fromDigits(text.substr(1));
  const std::string name(text);
  const auto* const named =
      std::find_if(namedColors.begin(), namedColors.end(), [&](const NamedColor& entry) {
        return text.find('\0') == std::string_view::npos &&
               strcasecmp(entry.first, name.c_str()) == 0;
      });
  if (named == namedColors.end()) return std::nullopt;
  return named->second;
}

}  // namespace orivanta::graphics
