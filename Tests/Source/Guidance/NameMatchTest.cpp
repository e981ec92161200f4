#include "Source/Guidance/NameMatch.hpp"

#include <gtest/gtest.h>

namespace orivanta {

TEST(NameMatch, TellsHowWellANameAnswers) {
  struct Case {
    const char* name;
    const char* typed;
    NameMatch expected;
  };
  for (const Case& each : {Case{"paper kestrel", "pap", NameMatch::beginning},
                           {"paper kestrel", "kest", NameMatch::word},
                           {"paper kestrel", "kes pap", NameMatch::word},
                           {"paper kestrel", "estr", NameMatch::inside},
                           {"paper kestrel", "kestral", NameMatch::near},
                           {"paper kestrel", "kesrtel", NameMatch::near},
                           {"paper kestrel", "ketre", NameMatch::near},
                           {"paper kestrel", "papr kest", NameMatch::near},
                           {"paper kestrel", "cat", NameMatch::none},
                           {"toilets", "toliet", NameMatch::near},
                           {"さまようホタン", "ホタ", NameMatch::inside},
                           {"backerei ol", "baeckerei", NameMatch::beginning},
                           {"backerei ol", "oel", NameMatch::word},
                           {"lotteria b1", "ロッテリア", NameMatch::near},
                           {"ロッテリア", "Lotteria", NameMatch::near},
                           {"starbucks coffee", "スターバックス", NameMatch::near},
                           {"family mart", "ファミリーマート", NameMatch::near},
                           {"ルミネ口", "lumine", NameMatch::near},
                           {"shop lemon", "ラーメン", NameMatch::none},
                           {"blue bar", "blue", NameMatch::beginning},
                           {"bar", "bat", NameMatch::none},
                           {"anything", "", NameMatch::beginning}})
    EXPECT_EQ(TypedText(each.typed).match(each.name), each.expected)
        << each.name << " / " << each.typed;
}

TEST(NameMatch, NamesAreOrderedAsPeopleCount) {
  const char* const inOrder[] = {"",  "1f 2", "1f 02 a", "1f 14", "1f 139",
                                 "2", "9",    "10",      "a",     "b"};
  for (std::size_t i = 0; i < std::size(inOrder); ++i)
    for (std::size_t j = 0; j < std::size(inOrder); ++j)
      EXPECT_EQ(nameComesBefore(inOrder[i], inOrder[j]), i < j)
          << inOrder[i] << " / " << inOrder[j];
}

}  // namespace orivanta
