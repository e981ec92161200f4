#include "Source/Guidance/TextFolding.hpp"

#include <gtest/gtest.h>

namespace orivanta {

TEST(TextFolding, CaseAndWidthDoNotCountButAccentsDo) {
  const std::pair<const char*, const char*> equal[] = {
      {"STRASSE", "straße"}, {"Éclair", "éCLAIR"},  {"ＡＴＭ", "atm"},
      {"ﾄｲﾚ", "トイレ"},     {"e\u0301", "\u00C9"}, {"\xFF", "\xFF"},
  };
  for (const auto& [left, right] : equal) EXPECT_EQ(caseFolded(left), caseFolded(right)) << left;
  EXPECT_NE(caseFolded("が"), caseFolded("か"));
  EXPECT_NE(caseFolded("cafe"), caseFolded("café"));
}

TEST(TextFolding, TheSearchFormLeavesOutWhatPeopleLeaveOut) {
  const std::pair<const char*, const char*> cases[] = {
      {"Crème  Brûlée!", "creme brulee"},
      {"Straße", "strasse"},
      {"Łódź – Café", "lodz cafe"},
      {"Smørrebrød, Œuvre", "smorrebrod oeuvre"},
      {"きっぷ", "キッフ\u309A"},
      {"Joe's & Moe’s", "joes moes"},
      {"ＷＣ２", "wc2"},
      {"مَقْهى", "مقهي"},
      {"إِسْعَـــاف", "اسعاف"},  // hamza, vowel signs and tatweel
      {"صيدليّة", "صيدليه"},
      {"ٱلطابق ٢ ۳", "الطابق 2 3"},
      {"ﻣﺼﻌﺪ", "مصعد"},  // presentation forms
      {"ﾄﾞｱ", "ト\u3099ア"},
      {"Ёлка", "елка"},
      {"が", "カ\u3099"},
      {"ก\u0E34", "ก\u0E34"},  // vowels of Thai are letters
      {"  ", ""},
  };
  for (const auto& [text, form] : cases) EXPECT_EQ(searchForm(text), form) << text;
  std::string huge;
  for (int i = 0; i < 100'000; ++i) huge += "ﷺ-";  // "ﷺ" folds to eighteen letters
  EXPECT_LT(searchForm(huge).size(), 400U);
  EXPECT_EQ(searchForm(std::string(299, 'a') + "é").size(), 299U) << "no truncated characters";
}

}  // namespace orivanta
