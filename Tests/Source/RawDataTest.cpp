#include "Source/RawData.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <random>

#include "Source/ImageCollection.hpp"

namespace orivanta {
namespace {

// What every reader makes of the value under "key" of a document.
struct Readings {
  std::optional<bool> bool_;
  std::optional<double> double_;
  std::optional<std::string> string;
  bool url;
};

TEST(RawData, ReadersAcceptTheirOwnKindAndNothingElse) {
  const std::vector<std::pair<std::string, Readings>> cases{
      {R"({})", {{}, {}, {}, false}},
      {R"({"key": null})", {{}, {}, {}, false}},
      {R"({"key": 7})", {true, 7.0, {}, false}},
      {R"({"key": 0})", {false, 0.0, {}, false}},
      {R"({"key": -0.5})", {true, -0.5, {}, false}},
      {R"({"key": true})", {true, 1.0, {}, false}},
      {R"({"key": false})", {false, 0.0, {}, false}},
      {R"({"key": "12"})", {{}, {}, "12", true}},
      {R"({"key": "true"})", {{}, {}, "true", true}},
      {R"({"key": "two words"})", {{}, {}, "two words", false}},
      {R"({"key": ""})", {{}, {}, "", false}},
      {R"({"key": []})", {{}, {}, {}, false}},
      {R"({"key": {"key": 7}})", {{}, {}, {}, false}},
      {R"({"KEY": 7, "key ": 7})", {{}, {}, {}, false}},
      {R"(["key", 7])", {{}, {}, {}, false}},
  };
  for (const auto& [text, expected] : cases) {
    SCOPED_TRACE(text);
    const auto data = RawData::parse(text);
    ASSERT_TRUE(data);
    const RawData value = (*data)["key"];
    EXPECT_EQ(value.bool_(), expected.bool_);
    EXPECT_EQ(value.double_(), expected.double_);
    EXPECT_EQ(value.string(), expected.string);
    EXPECT_EQ(value.url().has_value(), expected.url);
    EXPECT_EQ(value.stringValue(), expected.string.value_or(""));
    EXPECT_EQ(value.doubleValue(), expected.double_.value_or(0.0));
    if (expected.string)
      EXPECT_EQ(value.stringForce(), *expected.string);
    else
      EXPECT_THROW(value.stringForce(), RawDataError);
    if (expected.double_)
      EXPECT_EQ(value.doubleForce(), *expected.double_);
    else
      EXPECT_THROW(value.doubleForce(), RawDataError);
    EXPECT_FALSE(value["deeper"]["still"].string());
  }
}

TEST(RawData, ArraysKeepTheirNullsAndOutliveTheDocumentsHandle) {
  std::vector<RawData> elements;
  {
    const auto data = RawData::parse(R"([1, null, "three"])");
    elements = data->arrayValue();
  }
  ASSERT_EQ(elements.size(), 3U);
  EXPECT_EQ(elements[0].double_(), 1.0);
  EXPECT_TRUE(elements[1].data() && !elements[1].double_() && !elements[1].string());
  EXPECT_EQ(elements[2].string(), "three");
  EXPECT_TRUE(RawData().arrayValue().empty());
  EXPECT_TRUE((*RawData::parse(R"({"0": 1})")).arrayValue().empty());
}

TEST(RawData, RefusesWhatIsNoJsonDocument) {
  for (const char* text :
       {"",         " ",         "7",       "\"text\"", "null",           "true",
        "[1,]",     "{'a': 1}",  "[1] [2]", "[1",       "[1] x",          "[// c\n1]",
        "[+1]",     "[1.]",      "[0x1]",   "[NaN]",    "[\"\xC3\x28\"]", "[\"\xED\xA0\x80\"]",
        "[\"\t\"]", "[\"\\x\"]", "<html/>", "[1e309]",  "[-1e999]",       "\xEF\xBB\xBF[1]"})
    EXPECT_FALSE(RawData::parse(text)) << text;
  EXPECT_FALSE(RawData::parse(std::string_view("[\0]", 3)));
  EXPECT_FALSE(RawData::parse("[" + std::string(400, '9') + "]"));
  for (const char* text : {"[\"\xC0\xAF\"]", "[\"\xE9\"]", R"(["\ud800"])", "[01]", "[.5]"})
    EXPECT_FALSE(RawData::parse(text)) << text;
  for (const char* text : {"[]", "{}", " [1e308, -0.0, 5e-324, 1e-999]\n", R"(["\ud83d\ude00"])"})
    EXPECT_TRUE(RawData::parse(text)) << text;
  const auto twice = RawData::parse(R"({"id": "first", "id": "a\u0000b"})");
  EXPECT_EQ((*twice)["id"].string(), std::string("a\0b", 3));
}

TEST(RawData, NestingIsBoundedAndEndsWithoutRecursion) {
  const auto nested = [](std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
  };
  EXPECT_TRUE(RawData::parse(nested(1000)));
  EXPECT_FALSE(RawData::parse(nested(1001)));
  EXPECT_FALSE(RawData::parse(std::string(1'000'000, '[')));
}

TEST(RawData, DoublesAreTheNearestToTheirText) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> coordinate(-3000.0, 3000.0);
  std::uniform_int_distribution<int> exponent(-300, 300);
  std::string text = "[12345678901234567890123, 18446744073709551615, -9223372036854775808";
  constexpr int count = 500'000;
  for (int i = 0; i < count; ++i) {
    const double value = coordinate(random);
    switch (i % 3) {
      case 0:
        text += fmt::format(",{:.3f}", value);
        break;
      case 1:
        text += fmt::format(",{:.17g}", value);
        break;
      default:
        text += fmt::format(",{:.12e}", std::ldexp(value, exponent(random)));
    }
  }
  text += "]";
  const auto data = RawData::parse(text);
  ASSERT_TRUE(data);
  const auto numbers = data->arrayValue();
  ASSERT_EQ(numbers.size(), count + 3U);
  const char* position = text.c_str() + 1;
  int wrong = 0;
  for (const RawData& number : numbers) {
    char* end = nullptr;
    if (number.double_() != std::strtod(position, &end)) ++wrong;
    position = end + 1;
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace orivanta
