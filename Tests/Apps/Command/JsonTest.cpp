#include "Apps/Command/Json.hpp"

#include <gtest/gtest.h>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
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

TEST(Json, WritesNestedValuesOnOneLine) {
  boost::json::object object({{"a", boost::json::array{1, 2.5, nullptr, true}},
                              {"q\"", "line\nbreak"},
                              {"far", std::numeric_limits<double>::infinity()},
                              {"none", boost::json::object()},
                              {"empty", boost::json::array()}});
  EXPECT_EQ(jsonText(object),
            R"({"a":[1,2.5,null,true],"q\"":"line\nbreak","far":null,"none":{},"empty":[]})");
}

}  // namespace
}  // namespace orivanta::command
