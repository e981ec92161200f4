// Reads the dates of a rule, such as "2026 Dec 24-Jan 02".
// Private header.
#pragma once

#include <cstddef>
#include <optional>

#include "Source/Guidance/Hours/Rule.hpp"
#include "Source/Guidance/Hours/Tokens.hpp"

namespace orivanta::guidance::hours {

/// Returns whether a token is a year from 1900 on.
bool isYear(const TokenReader& tokens, std::size_t ahead = 0);

/// Returns whether a date begins with a token: a month or Easter, with or without a year.
bool isDate(const TokenReader& tokens, std::size_t ahead = 0);

/// Returns whether the next tokens are an offset such as "-2 days".
bool isOffset(const TokenReader& tokens);

/// Reads an offset. Returns nothing if there is no valid one.
std::optional<int> readDaysAfter(TokenReader& tokens);

/// Reads the number in "Su[-1]": 1 to 5, or -5 to -1. Returns nothing for others.
std::optional<int> readNth(TokenReader& tokens);

/// Reads dates separated by commas; "Dec 24,26" are two days of December. Returns false if they are
/// not in the subset.
bool readDates(TokenReader& tokens, Rule& rule);

}  // namespace orivanta::guidance::hours
