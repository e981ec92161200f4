// Reads the days of a rule, such as "2026 Dec 24-Jan 02 Mo-Fr".
// Private header.
#pragma once

#include "Source/Guidance/Hours/Rule.hpp"
#include "Source/Guidance/Hours/Tokens.hpp"

namespace orivanta::guidance::hours {

/// Returns whether a token begins days.
bool isDay(const TokenReader& tokens, std::size_t ahead = 0);

/// Reads the days of a rule, if there are any. Returns false if they are not in the subset.
bool readDays(TokenReader& tokens, Rule& rule);

}  // namespace orivanta::guidance::hours
