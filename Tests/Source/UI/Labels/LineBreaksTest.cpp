#include "Source/UI/Labels/LineBreaks.hpp"

#include <gtest/gtest.h>

#include <string>

namespace orivanta {
namespace {

std::string joined(const auto& texts) {
  std::string all;
  for (const auto& text : texts) all += (all.empty() ? "" : "|") + std::string(text);
  return all;
}

// One for each column: two for three bytes, as kana have.
double columns(std::string_view text) {
  double width = 0;
  for (const char byte : text) width += (byte & 0xC0) != 0x80 ? 1.0 : 0.5;
  return width;
}

TEST(LineBreaks, LinesEndWhereTheScriptAllows) {
  struct Case {
    const char* text;
    const char* parts;
    const char* two;  // the name in two lines; "" if it cannot be broken
  };
  for (const auto& [text, parts, two] : std::vector<Case>{
           {"", "", ""},
           {"  ", "", ""},
           {"Bakery", "Bakery", ""},
           {" Lost and  found ", "Lost |and  |found", "Lost and|found"},
           {"A\u00A0B C", "A\u00A0B |C", "A\u00A0B|C"},
           {"新宿駅", "新|宿|駅", ""},
           {"店舗 B1F-14", "店|舗 |B1F-14", "店舗|B1F-14"},
           {"北（東）口、西", "北|（東）|口、|西", "北（東）|口、西"},
           {"「き」ょー", "「き」ょー", ""},
           {"ルミネエスト新宿", "ル|ミ|ネ|エ|ス|ト|新|宿", "ルミネエスト|新宿"},
           {"ロング・メリディアン", "ロ|ン|グ・|メ|リ|ディ|ア|ン", "ロング・|メリディアン"},
           {"か\u3099き", "か\u3099|き", ""},
           {"👩‍👩‍👧 👍🏽", "👩‍👩‍👧 |👍🏽",
            "👩‍👩‍👧|👍🏽"},
           {"서울 역", "서울 |역", "서울|역"},
           {"\xFF\xFE x", "\xFF\xFE |x", "\xFF\xFE|x"}}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(joined(lineParts(text)), parts);
    const auto lines = labelLines(text, columns, 2);
    EXPECT_EQ(lines.size() > 1 ? joined(lines[1].lines) : "", two);
  }
}

TEST(LineBreaks, LinesHaveSimilarWidths) {
  const auto lines = labelLines("aa bb cc dd ee ff", columns);
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(joined(lines[1].lines), "aa bb cc|dd ee ff");
  EXPECT_EQ(joined(lines[2].lines), "aa bb|cc dd|ee ff");
  EXPECT_EQ(lines[2].width, 5);
  std::string many;
  for (int i = 0; i < 20'000; ++i) many += "word ";
  EXPECT_EQ(labelLines(many, columns).size(), 3U);
}

}  // namespace
}  // namespace orivanta
