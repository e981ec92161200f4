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

}  // namespace
}  // namespace orivanta
