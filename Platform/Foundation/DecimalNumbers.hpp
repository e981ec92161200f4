// Reading decimal numbers, without regard to the locale.
#pragma once

#include <cstddef>
#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::foundation {

/// Reads the number at the beginning of a text: an optional "-"; digits with an optional point
/// before, among or after them; and an optional exponent, such as "e-3". "inf", "infinity" and
/// "nan" are read as well, in upper or lower case. Returns how many bytes it has, or 0 if there is
/// none; `number` is then unchanged.
///
/// The number is the nearest one: infinity or 0 if its magnitude is too great or too small. A
/// `float` may be the second nearest if both are almost equally near. Any thread.
ORIVANTA_API std::size_t readNumber(std::string_view text, double& number);
ORIVANTA_API std::size_t readNumber(std::string_view text, float& number);

}  // namespace orivanta::foundation
