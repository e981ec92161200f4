#include "Apps/Import/Places/Categories.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "Source/Guidance/Kinds/KindWords.hpp"

namespace orivanta::importer {

TEST(Categories, KnowTheValuesOfAllSources) {
  const struct {
    const char* value;
    const char* category;
    const char* unknown;
  } cases[] = {
      {"", "rooms", ""},
      {"shop=clothes", "clothing", ""},
      {"shop=books;gift", "books", ""},
      {"shop=climbing_gear", "shopping", "climbing gear"},
      {"amenity=toilets", "toilets", ""},
      {"Amenity=ATM", "cash", ""},
      {"room=office", "offices", ""},
      {"sculpture=yes", "other", "yes"},
      {"unit:restroom.male", "toilets-men", ""},
      {"amenity:restroom.female.wheelchair", "toilets-accessible", ""},
      {"occupant:restaurant.japanese.ramen", "restaurants", ""},
      {"occupant:falconry", "shopping", "falconry"},
      {"unit:cryochamber", "rooms", "cryochamber"},
      {"B005", "tickets", ""},
      {"F108", "exits", ""},
      {"stair", "stairs", ""},
      {"emergency-exits", "emergency-exits", ""},
  };
  for (const auto& [value, category, unknown] : cases) {
    SCOPED_TRACE(value);
    const CategoryMatch match = matchCategory(value);
    EXPECT_EQ(match.category->id, category);
    EXPECT_EQ(match.unknown, unknown);
  }
}

TEST(Categories, HaveParentsAndNamesInAllLanguages) {
  std::set<std::string_view> before;
  for (const Category& category : allCategories()) {
    SCOPED_TRACE(category.id);
    EXPECT_TRUE(category.parent.empty() || before.contains(category.parent));
    EXPECT_TRUE(before.insert(category.id).second);
    for (const std::string_view name : category.names) EXPECT_FALSE(name.empty());
    EXPECT_EQ(category.name("de-AT"), category.names[1]);
    EXPECT_EQ(category.name("nl"), category.names[0]);
  }
}

// Otherwise a floor would change its colors when a host switches the style on.
TEST(Categories, HaveTheFillsOfTheStyle) {
  const std::set<std::string_view> withOtherFills{"seating", "hotels", "baggage"};
  const KindWords words;
  for (const Category& category : allCategories())
    for (const std::string_view name : category.names)
      EXPECT_TRUE(fillKindOf(words.kindOf(name)) == category.kind ||
                  withOtherFills.contains(category.id))
          << category.id << ": " << name;
}

}  // namespace orivanta::importer
