#include "Platform/Foundation/DecimalNumbers.hpp"

#include <fast_float/fast_float.h>

namespace orivanta::foundation {

namespace {

template <class Number>
std::size_t read(std::string_view text, Number& number) {
  Number value = 0;
  const auto [end, error] = fast_float::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc()) return 0;
  number = value;
  return static_cast<std::size_t>(end - text.data());
}

}  // namespace

std::size_t readNumber(std::string_view text, double& number) { return read(text, number); }

std::size_t readNumber(std::string_view text, float& number) { return read(text, number); }

}  // namespace orivanta::foundation
