// Writing JSON with exact and short numbers.
#pragma once

#include <boost/json/value.hpp>
#include <string>
#include <string_view>

namespace orivanta::command {

/// The shortest text that reads back as the same double; 1e999 for infinity, which every JSON
/// grammar accepts, and null for no number.
std::string jsonNumber(double number);

/// The text in quotes, escaped where it must be.
std::string jsonString(std::string_view text);

/// The value on one line; null for numbers that are not finite. Nesting is limited by the stack:
/// only for values made by the program.
std::string jsonText(const boost::json::value& value);

}  // namespace orivanta::command
