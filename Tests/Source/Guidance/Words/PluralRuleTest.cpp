#include "Source/Guidance/Words/PluralRule.hpp"

#include <gtest/gtest.h>

#include "Source/Guidance/Words/Messages.hpp"

namespace orivanta::guidance {
namespace {

std::string formsOf(const PluralRule& rule, unsigned from, unsigned to) {
  std::string forms;
  for (unsigned number = from; number <= to; ++number) forms += std::to_string(rule.form(number));
  return forms;
}

TEST(PluralRule, SelectsTheFormsOfEachLanguage) {
  const std::string more(119, '1');  // 2 to 120
  const std::string arabic = "01233333333" + std::string(89, '4') + "55533333333" + "4444444444";
  const std::pair<const char*, std::string> cases[] = {{"en", "10" + more},
                                                       {"de", "10" + more},
                                                       {"fr", "00" + more},
                                                       {"ja", std::string(121, '0')},
                                                       {"ar", arabic}};
  for (const auto& [language, forms] : cases)  // for 0 to 120
    EXPECT_EQ(formsOf(Messages::ofLibrary(language)->plural, 0, 120), forms) << language;
}

TEST(PluralRule, EvaluatesTheOperatorsOfC) {
  const std::pair<std::string, const char*> cases[] = {
      {" n % 3 == 0 || n<3 && n > 1 ", "101100"},
      {"!n+!!n*2", "122222"},
      {"n>=2?n>3?2:1:0", "001122"},
      {"(7-n-1)/2", "322110"},
      {"n - 1", "001234"},  // the greatest number is not a form
      {"5 / n + n % n", "052111"}};
  for (const auto& [expression, forms] : cases) {  // for 0 to 5
    const auto rule = PluralRule::parse("nplurals=7;plural=" + expression);
    ASSERT_TRUE(rule) << expression;
    EXPECT_EQ(formsOf(*rule, 0, 5), forms) << expression;
  }
}

TEST(PluralRule, RejectsInvalidFields) {
  const std::string prefix = "nplurals=2; plural=";
  for (const std::string& expression :
       {std::string(), std::string("n !"), std::string("(n"), std::string("n)"),
        std::string("n ? 1"), std::string("m"), std::string("1 2"), std::string("n = 1"),
        std::string(500, '('), std::string(500, '!') + "n",
        std::string(65, '(') + "n" + std::string(65, ')'), "n" + std::string(1000, ' ')})
    EXPECT_FALSE(PluralRule::parse(prefix + expression)) << expression;
  for (const char* field :
       {"", "nplurals=2", "plural=n", "nplurals=0; plural=0;", "nplurals=17; plural=0",
        "nplurals=n; plural=0", "nplurals 2; plural=0"})
    EXPECT_FALSE(PluralRule::parse(field)) << field;
}

}  // namespace
}  // namespace orivanta::guidance
