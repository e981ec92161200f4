#include "Source/Guidance/TextFolding.hpp"

#include <gtest/gtest.h>

namespace orivanta {
namespace {

TEST(TextFolding, CaseAndWidthDoNotCount) {
  struct Case {
    const char* left;
    const char* right;
    bool areEqual = true;
  };
  for (const Case& each : {Case{"HAUPTEINGANG", "haupteingang"},
                           {"STRASSE", "straße"},
                           {"Éclair", "éCLAIR"},
                           {"ＡＴＭ", "atm"},
                           {"ﾄｲﾚ", "トイレ"},
                           {"e\u0301", "\u00C9"},
                           {"が", "か", false},
                           {"cafe", "café", false},
                           {"Joe's", "joes", false}})
    EXPECT_EQ(caseFolded(each.left) == caseFolded(each.right), each.areEqual) << each.left;
  EXPECT_EQ(caseFolded("\xFF"), "\xFF");
}

TEST(TextFolding, TheSearchFormLeavesOutWhatPeopleLeaveOut) {
  const std::pair<const char*, const char*> cases[] = {
      {"Crème  Brûlée!", "creme brulee"},
      {"STRASSE", "strasse"},
      {"Straße", "strasse"},
      {"Łódź – Café", "łodz cafe"},
      {"Joe's & Moe’s", "joes moes"},
      {"ＷＣ２", "wc2"},
      {"مَقْهى", "مقهى"},
      {"Ёлка", "елка"},
      {"が", "か\u3099"},
      {"  ", ""},
      {"\xFF", ""},
  };
  for (const auto& [text, form] : cases) EXPECT_EQ(searchForm(text), form) << text;
  EXPECT_NE(searchForm("ก\u0E34"), searchForm("ก\u0E35")) << "vowels of Thai are letters";
}

TEST(TextFolding, TheSearchFormOfAHugeNameIsThatOfItsBeginning) {
  std::string name;
  for (int i = 0; i < 100'000; ++i) name += "ﷺ-";  // of eighteen letters
  EXPECT_LT(searchForm(name).size(), 400U);
  EXPECT_EQ(searchForm(std::string(299, 'a') + "é").size(), 299U) << "no half characters";
}

}  // namespace
}  // namespace orivanta
