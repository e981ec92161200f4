// Parsing JSON into one immutable document with exact numbers.
#pragma once

#include <boost/json/value.hpp>
#include <memory>
#include <string_view>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta {

/// The deepest nesting of arrays and objects that is read.
constexpr std::size_t deepestJsonNesting = 1000;

/// Parses strict JSON (RFC 8259). Numbers with a fraction, an exponent or more than 64 bits become
/// the nearest double. Null when the text is damaged in any way, holds a number beyond the range of
/// a double, or is nested too deeply. The result owns all that it holds; text is not referred to.
/// `budget`, if there is one, pays for the result as long as anybody holds it, and for what parsing
/// needs beside it. Throws `std::bad_alloc` if memory or budget do not suffice.
std::shared_ptr<const boost::json::value> parseJsonDocument(
    std::string_view text, const std::shared_ptr<foundation::MemoryBudget>& budget = nullptr);

}  // namespace orivanta
