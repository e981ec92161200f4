#include "Source/Attribution.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Source/RawData.hpp"
#include "Source/Venue.hpp"

namespace orivanta {
namespace {

std::shared_ptr<Venue> venueWith(const std::string& fields) {
  return Venue::make(
      *RawData::parse(fmt::format(R"({{"id": "v", "slug": "v", "name": "V"{}}})", fields)));
}

TEST(Attribution, IsOneHarmlessLine) {
  const std::pair<const char*, const char*> cases[] = {
      {"", ""},
      {R"(, "attribution": 7, "license": null)", ""},
      {R"(, "attribution": "© OSM", "license": "ODbL 1.0")", "© OSM · ODbL 1.0"},
      {R"(, "license": "ODbL 1.0")", "ODbL 1.0"},
      {R"(, "attribution": " one\r\n\ttwo\u2028 ")", "one two"},
      {R"(, "attribution": "a\u001b[31m\u009b31m\u007fb")", "a [31m 31m b"},
      {R"(, "attribution": "\ufeff\u202e新宿\u2066 \u200f😀")", "新宿 😀"},
  };
  for (const auto& [fields, expected] : cases)
    EXPECT_EQ(attributionText(*venueWith(fields)), expected);
}

TEST(Attribution, IsCutAfterAWholeCharacter) {
  const auto creditOf = [](const std::string& credit) {
    return attributionText(*venueWith(fmt::format(R"(, "attribution": "{}")", credit)));
  };
  std::string name;
  for (int i = 0; i < 1'000'000; ++i) name += "新";
  const std::string text = creditOf(name);
  EXPECT_LE(text.size(), 1003U);
  EXPECT_TRUE(text.ends_with("新…"));
  for (const auto& whole : {std::string(1000, 'a'), std::string(998, 'a') + " b"}) {
    EXPECT_EQ(creditOf(whole), whole);
    EXPECT_EQ(creditOf(whole + "b"), whole + "…");
  }
}

}  // namespace
}  // namespace orivanta
