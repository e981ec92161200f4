// Writes JSON with exact and short numbers, and with strings that a terminal can show.
#pragma once

#include <boost/json/value.hpp>
#include <string>
#include <string_view>

namespace orivanta::text {

/// Returns the shortest text that is read back as the same double. Infinity is written as 1e999,
/// which every JSON grammar accepts, and NaN as null.
std::string jsonNumber(double number);

/// Returns the text in quotes, escaped as JSON requires and so that a terminal can show it; see
/// `withControlsEscaped`.
std::string jsonString(std::string_view text);

/// Returns the JSON text with those characters in its strings escaped that affect a terminal or
/// change the writing direction. An invalid byte becomes an escaped U+FFFD.
std::string withControlsEscaped(std::string_view json);

/// Returns the value on one line, with strings as `jsonString` writes them and null for numbers
/// that are not finite. The stack limits the nesting, so pass only values that the program has
/// made.
std::string jsonText(const boost::json::value& value);

}  // namespace orivanta::text
