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
  const std::string more(109, '1');  // 12 to 120
  const std::string ten =
      "3333333344444444444444444444444444444444444444444444444444444444444444444"
      "4444444444444444444444444";  // 3 to 100, of which the last differs
  struct Case {
    const char* language;
    std::string forms;  // for 0 to 120
  };
  for (const Case& each : {Case{"en", "101111111111" + more},
                           {"de", "101111111111" + more},
                           {"fr", "001111111111" + more},
                           {"ja", std::string(121, '0')},
                           {"ar", "012" + ten.substr(0, 97) + "555" + "33333333" + "4444444444"}})
    EXPECT_EQ(formsOf(Messages::ofLibrary(each.language)->plural, 0, 120), each.forms)
        << each.language;
}

TEST(PluralRule, EvaluatesTheOperatorsOfC) {
  struct Case {
    const char* expression;
    const char* forms;  // for 0 to 5
  };
  for (const Case& each : {Case{"n", "012345"},
                           {" n % 3 == 0 || n<3 && n > 1 ", "101100"},
                           {"!n+!!n*2", "122222"},
                           {"n>=2?n>3?2:1:0", "001122"},
                           {"(7-n-1)/2", "322110"},
                           {"n - 1", "001234"},  // the greatest number is not a form
                           {"5 / n + n % n", "052111"}}) {
    const auto rule = PluralRule::parse(std::string("nplurals=7;plural=") + each.expression);
    ASSERT_TRUE(rule) << each.expression;
    EXPECT_EQ(formsOf(*rule, 0, 5), each.forms) << each.expression;
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
