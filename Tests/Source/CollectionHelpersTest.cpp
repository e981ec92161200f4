#include "Source/CollectionHelpers.hpp"

#include <gmock/gmock.h>

namespace orivanta {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(CollectionHelpers, MergingPrefersTheLeftAndKeepsTheOrderOfTheRight) {
  const Dictionary<int> left{{"a", 1}, {"b", 2}};
  const Dictionary<int> right{{"c", 3}, {"a", 4}};
  EXPECT_THAT(left + right, ElementsAre(Pair("c", 3), Pair("a", 1), Pair("b", 2)));
  EXPECT_THAT(left + Dictionary<int>(), ElementsAre(Pair("a", 1), Pair("b", 2)));
  EXPECT_THAT(Dictionary<int>() + right, ElementsAre(Pair("c", 3), Pair("a", 4)));
}

TEST(CollectionHelpers, ContainsComparesEveryWantedEntryExactly) {
  const Dictionary<std::string> entries{{"rel", "next"}, {"type", "x"}, {"empty", ""}};
  EXPECT_TRUE(contains(entries, {}));
  EXPECT_TRUE(contains({}, {}));
  EXPECT_TRUE(contains(entries, {{"rel", "next"}}));
  EXPECT_TRUE(contains(entries, {{"empty", ""}, {"rel", "next"}}));
  EXPECT_FALSE(contains(entries, {{"rel", "Next"}}));
  EXPECT_FALSE(contains(entries, {{"Rel", "next"}}));
  EXPECT_FALSE(contains(entries, {{"rel", "next"}, {"missing", ""}}));
  EXPECT_FALSE(contains({}, {{"rel", "next"}}));
}

}  // namespace
}  // namespace orivanta
