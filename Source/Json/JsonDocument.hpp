// Parses JSON into one immutable document with exact numbers.
#pragma once

#include <boost/json/value.hpp>
#include <memory>
#include <string_view>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta {

/// The maximum nesting of arrays and objects.
constexpr std::size_t deepestJsonNesting = 1000;

/// Parses strict JSON (RFC 8259). Numbers with a fraction, an exponent or more than 64 bits become
/// the nearest double. Returns null if the text is invalid, has a number outside the range of a
/// double, or is nested too deeply. The result owns its contents and does not refer to `text`. The
/// result counts against `budget`, which may be null, as long as a handle exists, and the temporary
/// memory of the parser during the call. Throws `std::bad_alloc` if the memory or the budget is not
/// sufficient.
std::shared_ptr<const boost::json::value> parseJsonDocument(
    std::string_view text, const std::shared_ptr<foundation::MemoryBudget>& budget = nullptr);

}  // namespace orivanta
