// Reads the times of a rule, such as "09:00-12:00,14:00-18:00".
// Private header.
#pragma once

#include "Source/Guidance/Hours/Rule.hpp"
#include "Source/Guidance/Hours/Tokens.hpp"

namespace orivanta::guidance::hours {

/// Returns whether a token is the hour of a time and not a day or a year.
bool isTime(const TokenReader& tokens, std::size_t ahead = 0);

/// Reads the times of a rule, if there are any. Returns false if they are not in the subset.
bool readSpans(TokenReader& tokens, Rule& rule);

}  // namespace orivanta::guidance::hours
