// Reads the rules of opening hours.
// Private header.
#pragma once

#include <optional>
#include <string_view>

#include "Source/Guidance/Hours/Rule.hpp"

namespace orivanta::guidance::hours {

/// Reads the rules of a text. Returns nothing if the text is not in the subset that `OpeningHours`
/// describes.
std::optional<Schedule> parseRules(std::string_view text);

}  // namespace orivanta::guidance::hours
