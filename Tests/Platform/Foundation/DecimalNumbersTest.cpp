#include "Platform/Foundation/DecimalNumbers.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace orivanta::foundation {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(DecimalNumbers, AreTheNearestOnes) {
  const struct {
    std::string text;
    double number;
    std::size_t length;
  } cases[] = {
      {"0", 0.0, 1},
      {"-12.5 ", -12.5, 5},
      {".5x", 0.5, 2},
      {"7.", 7.0, 2},
      {"1e3", 1e3, 3},
      {"1E-3,", 1e-3, 4},
      {"1e+", 1.0, 1},
      {"1.e5", 1e5, 4},
      {"0.1", 0.1, 3},
      {"8.96", 8.96, 4},
      {"9007199254740993", 9007199254740992.0, 16},
      {"9007199254740992.999999999999999999999", 9007199254740992.0 + 1, 38},
      {"123456789012345678901234567890", 123456789012345678901234567890.0, 30},
      {"1e23", 1e23, 4},
      {"2.2250738585072011e-308", 2.2250738585072011e-308, 23},
      {"4.9e-324", std::numeric_limits<double>::denorm_min(), 8},
      {"1.7976931348623157e308", std::numeric_limits<double>::max(), 22},
      {"1e400", infinity, 5},
      {"-1e-400", -0.0, 7},
      {"1e99999999999999999999", infinity, 22},
      {"0e99999999999999999999", 0.0, 22},
      {"0." + std::string(400, '0') + "1e401", 1.0, 407},
      {"-Inf", -infinity, 4},
      {"infinity", infinity, 8},
  };
  for (const auto& [text, number, length] : cases) {
    double read = 17;
    EXPECT_EQ(readNumber(text, read), length) << text;
    EXPECT_EQ(read, number) << text;
    EXPECT_EQ(std::signbit(read), std::signbit(number)) << text;
    float less = 17;
    EXPECT_EQ(readNumber(text, less), length) << text;
    EXPECT_EQ(less, static_cast<float>(number)) << text;
  }
  double read = 17;
  EXPECT_EQ(readNumber("nan", read), 3);
  EXPECT_TRUE(std::isnan(read));
}

TEST(DecimalNumbers, LeaveOtherTextsAlone) {
  for (const char* text : {"", "-", ".", "-.", "+1", " 1", "e5", "x", "in", "--1"}) {
    double read = 17;
    EXPECT_EQ(readNumber(text, read), 0) << text;
    EXPECT_EQ(read, 17) << text;
  }
}

}  // namespace
}  // namespace orivanta::foundation
