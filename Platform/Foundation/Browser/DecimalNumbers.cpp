#include "Platform/Foundation/DecimalNumbers.hpp"

#include <array>
#include <cstdint>
#include <limits>

// Converts a number with the browser's parser, which rounds correctly. See NumberFunctions.js.
extern "C" double orivantaNumberOf(const char* text, std::size_t length);

namespace orivanta::foundation {

namespace {

constexpr std::uint64_t mostExactDigits = std::uint64_t{1} << 53U;
constexpr std::array<double, 23> exactPowers{1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                             1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                             1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int mostExponent = 1'000'000;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// The digits of a number as an integer, and the power of ten to multiply it with.
class Digits {
 public:
  void add(char digit, bool isFraction) {
    isExact_ = isExact_ && value_ < mostExactDigits / 10;
    if (isExact_) value_ = value_ * 10 + static_cast<unsigned>(digit - '0');
    exponent_ -= isFraction ? 1 : 0;
    areThere_ = true;
  }

  void multiply(int exponent) { exponent_ += exponent; }

  bool areThere() const { return areThere_; }

  // Whether `product` is the nearest number: two exact numbers are multiplied or divided, and the
  // result is rounded once. Clinger, "How to read floating point numbers accurately", 1990.
  bool isExact() const {
    constexpr int most = static_cast<int>(exactPowers.size()) - 1;
    return isExact_ && exponent_ >= -most && exponent_ <= most;
  }

  double product() const {
    const auto value = static_cast<double>(value_);
    return exponent_ < 0 ? value / exactPowers[static_cast<std::size_t>(-exponent_)]
                         : value * exactPowers[static_cast<std::size_t>(exponent_)];
  }

 private:
  std::uint64_t value_ = 0;
  int exponent_ = 0;
  bool isExact_ = true;
  bool areThere_ = false;
};

// Whether a text begins with a word in lower case, in any case.
bool beginsWith(std::string_view text, std::string_view word) {
  if (text.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i)
    if ((text[i] | 0x20) != word[i]) return false;
  return true;
}

// Returns the length of an exponent, and adds it to the digits.
std::size_t readExponent(std::string_view text, Digits& digits) {
  if (text.empty() || (text.front() | 0x20) != 'e') return 0;
  std::size_t at = 1;
  const bool isNegative = at < text.size() && text[at] == '-';
  if (isNegative || (at < text.size() && text[at] == '+')) ++at;
  if (at == text.size() || !isDigit(text[at])) return 0;
  int exponent = 0;
  for (; at < text.size() && isDigit(text[at]); ++at)
    if (exponent < mostExponent) exponent = exponent * 10 + (text[at] - '0');
  digits.multiply(isNegative ? -exponent : exponent);
  return at;
}

}  // namespace

std::size_t readNumber(std::string_view text, double& number) {
  const std::size_t start = !text.empty() && text.front() == '-' ? 1 : 0;
  const double sign = start == 1 ? -1 : 1;
  std::size_t at = start;
  Digits digits;
  for (; at < text.size() && isDigit(text[at]); ++at) digits.add(text[at], false);
  if (at < text.size() && text[at] == '.')
    for (++at; at < text.size() && isDigit(text[at]); ++at) digits.add(text[at], true);
  if (digits.areThere()) {
    at += readExponent(text.substr(at), digits);
    number = sign * (digits.isExact() ? digits.product()
                                      : orivantaNumberOf(text.data() + start, at - start));
    return at;
  }
  for (const std::string_view word : {"infinity", "inf", "nan"})
    if (beginsWith(text.substr(start), word)) {
      number = sign * (word == "nan" ? std::numeric_limits<double>::quiet_NaN()
                                     : std::numeric_limits<double>::infinity());
      return start + word.size();
    }
  return 0;
}

std::size_t readNumber(std::string_view text, float& number) {
  double nearest = 0;
  const std::size_t length = readNumber(text, nearest);
  if (length > 0) number = static_cast<float>(nearest);
  return length;
}

}  // namespace orivanta::foundation
