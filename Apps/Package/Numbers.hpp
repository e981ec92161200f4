// Writes numbers as text. Most numbers of a package have few digits after the decimal point.
#pragma once

#include <fmt/compile.h>

#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>

namespace orivanta::package {

/// Appends the shortest decimal that is read as the same number. Multiples of 0.0001 are written
/// much faster than others.
inline void appendNumber(std::string& text, double value) {
  constexpr std::uint64_t steps = 10'000;
  constexpr double largest = 1e9;
  const double scaled = std::abs(value) * steps;
  const auto whole =
      scaled < largest * steps ? static_cast<std::uint64_t>(std::floor(scaled + 0.5)) : 0;
  if (whole == 0 || static_cast<double>(whole) / steps != std::abs(value)) {
    fmt::format_to(std::back_inserter(text), FMT_COMPILE("{}"), value);
    return;
  }
  if (value < 0.0) text += '-';
  const fmt::format_int integer(whole / steps);
  text.append(integer.data(), integer.size());
  std::uint64_t rest = whole % steps;
  if (rest == 0) return;
  text += '.';
  for (std::uint64_t digit = steps / 10; rest > 0; digit /= 10) {
    text += static_cast<char>('0' + rest / digit);
    rest %= digit;
  }
}

}  // namespace orivanta::package
