// The limits that texts keep in every adapter of Text.hpp.
#pragma once

#include <string_view>

#include "Platform/Graphics/Text.hpp"

namespace orivanta::graphics {

/// Returns whether the numbers of a style and a scale are in the range that can be drawn.
bool canDrawText(const TextStyle& style, double scale);

/// Returns the first 10,000 bytes of a text, without the last character if it is not complete.
std::string_view truncatedText(std::string_view text);

}  // namespace orivanta::graphics
