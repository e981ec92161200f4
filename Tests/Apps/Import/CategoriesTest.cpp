#include "Apps/Import/Places/Categories.hpp"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "Apps/Import/Write/PlaceRecords.hpp"
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

// "Turn left at the exit" tells nothing where every door is an exit.
TEST(Categories, OfDoorsAndWholeGroupsAreNoLandmarks) {
  UsedCategories categories;
  for (const char* value : {"F017", "F108", "amenity=toilets", "shop=clothes"})
    categories.use(value);
  std::set<std::string> general;
  std::set<std::string> others;
  for (const auto& record : categories.records("en"))
    (record.as_object().contains("general") ? general : others)
        .emplace(record.at("id").as_string());
  for (const char* id : {"cat-entrances", "cat-exits", "cat-shopping"})
    EXPECT_TRUE(general.contains(id)) << id;
  for (const char* id : {"cat-toilets", "cat-clothing"}) EXPECT_TRUE(others.contains(id)) << id;
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
