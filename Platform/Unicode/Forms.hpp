// Unicode properties and normal forms from compact tables. It gives the results of utf8proc, from
// which the tables are made, for a target that has no binary of that library.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "Platform/Unicode/Tables.hpp"

namespace orivanta::unicode {

/// Code points.
using CodePoints = std::vector<std::int32_t>;

/// Returns the properties of a code point; those of an unassigned one if it is out of range.
const Properties& propertiesOf(std::int32_t point);

/// Reads the code point at the start of a UTF-8 text. Returns its length in bytes, or 0 if the text
/// is empty or does not begin with valid UTF-8.
std::size_t readCodePoint(std::string_view text, std::int32_t& point);

/// Returns the code points of a UTF-8 text in their compatibility decomposition, case-folded and in
/// canonical order. `dropsIgnorable` leaves out those without a visible form. Returns nothing if
/// the text is not valid UTF-8.
std::optional<CodePoints> foldedDecomposition(std::string_view text, bool dropsIgnorable);

/// Composes decomposed code points in canonical order.
void compose(CodePoints& points);

}  // namespace orivanta::unicode
