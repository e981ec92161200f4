#include "Apps/Command/Json.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <vector>

namespace orivanta::command {
namespace {

TEST(Json, NumbersAreShortAndReadBackExactly) {
  const std::vector<std::pair<double, std::string>> cases = {
      {0.0, "0"},         {-0.0, "-0"},
      {540.0, "540"},     {0.1, "0.1"},
      {1e300, "1e+300"},  {1475.486803125438, "1475.486803125438"},
      {5e-324, "5e-324"}, {1.0 / 3.0, "0.3333333333333333"},
  };
  for (const auto& [number, text] : cases) {
    EXPECT_EQ(jsonNumber(number), text);
    EXPECT_EQ(std::strtod(text.c_str(), nullptr), number);
  }
  EXPECT_EQ(jsonNumber(std::numeric_limits<double>::infinity()), "1e999");
  EXPECT_EQ(jsonNumber(-std::numeric_limits<double>::infinity()), "-1e999");
  EXPECT_EQ(jsonNumber(std::numeric_limits<double>::quiet_NaN()), "null");
}

}  // namespace
}  // namespace orivanta::command
