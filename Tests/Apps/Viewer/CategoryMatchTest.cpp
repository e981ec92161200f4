#include "Apps/Viewer/CategoryMatch.hpp"

#include "Apps/Import/Places/Categories.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::viewer {
namespace {

// The categories of the importer in one language, each with a place that can be reached.
struct ImportedVenue {
  explicit ImportedVenue(const std::string& language, bool hasIdentifiers = true) {
    venue->categories.emplace();
    for (const importer::Category& each : importer::allCategories()) {
      auto category = Category::make(*RawData::parse(R"({"id": "x", "name": "x"})"));
      const std::string id(each.id);
      category->id = hasIdentifiers ? "cat-" + id : std::to_string(ids.size());
      category->name = std::string(each.name(language));
      category->locations.push_back(place);
      venue->categories->push_back(category);
      ids[category] = id;
    }
    place->nodes.push_back(test::makeNode(0, 0));
  }

  void keepOnly(const std::string& id) {
    for (const auto& category : *venue->categories)
      if (ids.at(category) != id) category->locations.clear();
  }

  const std::shared_ptr<Venue> venue =
      Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
  const std::shared_ptr<Location> place =
      Location::make(*RawData::parse(R"({"id": "l", "name": "L", "type": "shop"})"));
  std::map<std::shared_ptr<Category>, std::string> ids{{nullptr, ""}};
};

TEST(CategoryMatch, FindsToiletsAndExits) {
  for (const char* language : {"en", "de", "fr", "ja", "ar"}) {
    const guidance::InterfaceTexts texts(language);
    for (const bool hasIdentifiers : {true, false}) {
      ImportedVenue imported(language, hasIdentifiers);
      const auto nearest = [&](const char* key) {
        return imported.ids.at(categoryOfKind(*imported.venue, key, texts));
      };
      EXPECT_EQ(nearest("interface.names.toilet"), "toilets") << language;
      EXPECT_EQ(nearest("interface.names.exit"), "exits") << language;
      imported.keepOnly("emergency-exits");
      EXPECT_EQ(nearest("interface.names.exit"), "") << language;
    }
    ImportedVenue foreign(language);
    EXPECT_EQ(foreign.ids.at(categoryTyped(*foreign.venue, "WC", texts)), "toilets") << language;
  }
}

TEST(CategoryMatch, FindsWhatIsTyped) {
  const struct {
    const char *language, *typed, *id;
  } cases[] = {
      {"en", "toil", "toilets"},
      {"en", "Exit", "exits"},
      {"en", "entrance", "entrances"},
      {"en", "fire", "safety"},
      {"en", "emergency", "emergency-exits"},
      {"en", "street food", "street-food"},
      {"en", "at", ""},
      {"de", "Notausgang", "emergency-exits"},
      {"de", "Ausgang", "exits"},
      {"de", "ausg", "exits"},
      {"de", "schliess", "lockers"},
      {"fr", "sortie", "exits"},
      {"fr", "Sorties de secours", "emergency-exits"},
      {"fr", "toilettes hommes", "toilets-men"},
      {"ja", "出口", "exits"},
      {"ja", "非常口", "emergency-exits"},
      {"ja", "バス", "buses"},
      {"ja", "atm", "cash"},
      {"ar", "حمام", "toilets"},
      {"ar", "حمامات", "showers"},
      {"ar", "مخرج", "exits"},
      {"ar", "مخارج الطوارئ", "emergency-exits"},
      {"ar", "مطا", ""},
      {"ar", "!", ""},
  };
  for (const auto& each : cases) {
    const ImportedVenue imported(each.language);
    const guidance::InterfaceTexts texts(each.language);
    EXPECT_EQ(imported.ids.at(categoryTyped(*imported.venue, each.typed, texts)), each.id)
        << each.typed;
  }
}

}  // namespace
}  // namespace orivanta::viewer
