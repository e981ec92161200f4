#include "Apps/Text/Json.hpp"

#include <gtest/gtest.h>

#include <boost/json/object.hpp>
#include <cstdlib>
#include <limits>
#include <vector>

namespace orivanta::text {
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

TEST(Json, StringsHoldNothingThatActsOnATerminal) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"a\"\n\033", R"("a\"\n\u001b")"},
      {"\x7F\u009B31m", R"("\u007f\u009b31m")"},
      {"\u202Egnp.exe\u2066", R"("\u202egnp.exe\u2066")"},
      {"\u061C\u200E\u200F\uFEFF", R"("\u061c\u200e\u200f\ufeff")"},
      {"\u2028\u2029", R"("\u2028\u2029")"},
      {"Café 新宿 😀", "\"Café 新宿 😀\""},
      {"a\x9B", R"("a\ufffd")"},
  };
  for (const auto& [text, quoted] : cases) {
    EXPECT_EQ(jsonString(text), quoted);
    EXPECT_EQ(jsonText(boost::json::object({{text, text}})), '{' + quoted + ':' + quoted + '}');
  }
}

}  // namespace
}  // namespace orivanta::text
