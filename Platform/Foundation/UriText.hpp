// Small tools for parsing the text of a URI.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace orivanta::foundation::uriText {

inline constexpr std::string_view digits = "0123456789";
inline constexpr std::string_view hexDigits = "0123456789ABCDEFabcdef";

inline bool contains(std::string_view set, char character) {
  return set.find(character) != set.npos;
}

/// Returns whether all characters of the text are in the set.
inline bool consistsOf(std::string_view text, std::string_view set) {
  return text.find_first_not_of(set) == text.npos;
}

/// Removes the text up to the next separator, or all of it if there is none, and returns what was
/// removed. The separator is removed as well, but not returned.
inline std::string_view takeUpTo(char separator, std::string_view& text) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

}  // namespace orivanta::foundation::uriText
