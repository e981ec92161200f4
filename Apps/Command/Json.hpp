// Writing JSON with exact and short numbers.
#pragma once

#include <boost/json/value.hpp>
#include <string>
#include <string_view>

namespace orivanta::command {

/// The shortest text that reads back as the same double; 1e999 for infinity, which every JSON
/// grammar accepts, and null for no number.
std::string jsonNumber(double number);

/// The text in quotes, escaped where it must be, and so that a terminal can show it: as
/// `withControlsEscaped`.
std::string jsonString(std::string_view text);

/// JSON text with everything in its strings escaped that acts on a terminal or changes the
/// direction of writing. A damaged byte becomes an escaped U+FFFD.
std::string withControlsEscaped(std::string_view json);

/// The value on one line, its strings as `jsonString` writes them; null for numbers that are not
/// finite. Nesting is limited by the stack: only for values made by the program.
std::string jsonText(const boost::json::value& value);

}  // namespace orivanta::command
