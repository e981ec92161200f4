#include "Platform/Foundation/DisplayText.hpp"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace orivanta::foundation {
namespace {

TEST(DisplayText, WidthCountsTheColumnsOfATerminal) {
  const std::vector<std::pair<std::string, std::size_t>> cases = {
      {"", 0},
      {"Foyer", 5},
      {"Räume", 5},
      {"Ra\u0308ume", 5},  // a combining mark takes no column
      {"新宿駅", 6},
      {"エレベーター", 12},
      {"부산대학교", 10},
      {"B1F屋外", 7},
      {"（屋外）", 8},
      {"ｱｲｳ", 3},       // half-width forms
      {"\xFF\xFE", 2},  // damaged bytes, each shown as one sign
  };
  for (const auto& [text, width] : cases) EXPECT_EQ(displayWidth(text), width) << text;
}

TEST(DisplayText, PrintableTakesWhatWouldActOnATerminal) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"Café 新宿", "Café 新宿"},
      {"a\nb\tc\r", "a b c "},
      {"\033[31mred", "\uFFFD[31mred"},
      {std::string("a\0b", 3), "a\uFFFDb"},
      {"\u009b31m", "\uFFFD31m"},  // the one-character form of ESC [
      {"a\u2028b", "a b"},
      {"\u202Egnirts\u2066", "gnirts"},
      {"\u061C\u200Ea\u200F\uFEFF", "a"},
      {"a\xC3", "a\uFFFD"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(printable(text), expected);
}

TEST(DisplayText, ClippedFitsIntoTheColumns) {
  const std::vector<std::tuple<std::string, std::size_t, std::string>> cases = {
      {"Bakery", 6, "Bakery"}, {"Bakery", 5, "Bake…"},      {"", 3, ""},
      {"新宿駅", 6, "新宿駅"}, {"新宿駅", 5, "新宿…"},      {"新宿駅", 4, "新…"},
      {"ae\u0301i", 2, "a…"},  {"ae\u0301", 2, "ae\u0301"},
  };
  for (const auto& [text, columns, expected] : cases) {
    EXPECT_EQ(clipped(text, columns), expected);
    EXPECT_LE(displayWidth(clipped(text, columns)), columns);
  }
  const std::string name = label(std::string(100'000, 'x'));
  EXPECT_EQ(displayWidth(name), 80U);
  EXPECT_TRUE(name.ends_with("x…"));
}

}  // namespace
}  // namespace orivanta::foundation
