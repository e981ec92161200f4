#include "Apps/Viewer/CategoryMatch.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Viewer/CategoryFit.hpp"
#include "Apps/Viewer/NearestChoices.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::viewer {
namespace {

using ::testing::ElementsAre;

// A venue with categories, each of which has a place that can be reached.
struct CategoryVenue {
  CategoryVenue() { venue->categories.emplace(); }

  // The categories of the importer in one language.
  CategoryVenue(const std::string& language, bool hasIdentifiers) : CategoryVenue() {
    for (const importer::Category& each : importer::allCategories()) {
      const std::string id = hasIdentifiers ? "cat-" + std::string(each.id) : "";
      add(std::string(each.name(language)), id, std::string(each.id));
    }
  }

  // The categories "Parent>Child, Other" without identifiers.
  explicit CategoryVenue(const std::string& list) : CategoryVenue() {
    for (const std::string& chain : split(list, ',')) {
      std::shared_ptr<Category> parent;
      for (const std::string& name : split(chain, '>')) {
        const auto child = add(name.substr(name.find_first_not_of(' ')), "", name);
        if (parent) parent->children.push_back(child);
        parent = child;
      }
    }
  }

  std::shared_ptr<Category> add(const std::string& name, const std::string& id,
                                const std::string& label) {
    auto category = Category::make(*RawData::parse(R"({"id": "x", "name": "x"})"));
    category->id = id.empty() ? std::to_string(labels.size()) : id;
    category->name = name;
    auto place = Location::make(*RawData::parse(R"({"id": "l", "name": "L", "type": "shop"})"));
    place->name = name;
    place->nodes.push_back(test::makeNode(0, 0));
    place->categories.push_back(category);
    category->locations.push_back(place);
    places.push_back(std::move(place));
    labels[category] = label;
    return venue->categories->emplace_back(std::move(category));
  }

  // Removes the places of all other categories.
  void keepOnly(const std::string& label) {
    for (const auto& category : *venue->categories)
      if (labels.at(category) != label) category->locations.clear();
  }

  std::string typed(std::string_view text) const { return joined(categoriesTyped(*venue, text)); }

  std::string ofKind(NamedKind kind) const {
    const auto found = categoriesOfKind(*venue, kind);
    return joined(found.categories) + (found.isWholeKind ? "!" : "");
  }

  std::string joined(const std::vector<std::shared_ptr<Category>>& categories) const {
    std::string text;
    for (const auto& each : categories) text += (text.empty() ? "" : " + ") + labels.at(each);
    return text;
  }

  const std::shared_ptr<Venue> venue =
      Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
  std::vector<std::shared_ptr<Location>> places;
  std::map<std::shared_ptr<Category>, std::string> labels;
};

TEST(CategoryMatch, FindsKindsInTheCategoriesOfTheImporter) {
  for (const char* language : {"en", "de", "fr", "ja", "ar"})
    for (const bool hasIdentifiers : {true, false}) {
      CategoryVenue venue(language, hasIdentifiers);
      EXPECT_EQ(venue.ofKind(NamedKind::toilet), "toilets!") << language;
      EXPECT_EQ(venue.ofKind(NamedKind::exit), "exits!") << language;
      EXPECT_EQ(venue.ofKind(NamedKind::entrance), "entrances!") << language;
      EXPECT_EQ(venue.typed("WC"), "toilets") << language;
      venue.keepOnly("emergency-exits");
      EXPECT_EQ(venue.ofKind(NamedKind::exit), "") << language;
    }
}

TEST(CategoryMatch, FindsWhatIsTyped) {
  const struct {
    const char *language, *typed, *id;
  } cases[] = {
      {"en", "toil", "toilets"},
      {"en", "Exit", "exits"},
      {"en", "entrance", "entrances"},
      {"de", "Eingang", "entrances"},
      {"fr", "entrée", "entrances"},
      {"ja", "入口", "entrances"},
      {"ar", "مدخل", "entrances"},
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
  for (const auto& each : cases)
    EXPECT_EQ(CategoryVenue(each.language, true).typed(each.typed), each.id) << each.typed;
  for (const auto& [singular, id] : {std::pair("Eingang", "entrances"), {"Exit", "exits"}}) {
    CategoryVenue venue("de", true);
    venue.keepOnly(id == std::string("exits") ? "entrances" : "exits");
    EXPECT_EQ(venue.typed(singular), "") << "not the opposite";
  }
}

TEST(CategoryMatch, UnderstandsOtherNames) {
  const struct {
    const char *categories, *typed, *found;
  } cases[] = {
      {"Toiletries", "toilet", ""},
      {"Toiletries", "toil", "Toiletries"},
      {"Entrances,Entrances and exits", "exit", "Entrances and exits"},
      {"Ausgang,Eingang", "Eingänge", "Eingang"},
      {"Ausgang,Haupteingang,Wareneingang", "Eingang", "Haupteingang + Wareneingang"},
      {"Fluchttür,Notausgang", "Ausgang", ""},
      {"Men's toilets,Toiletries,Women's toilets", "toilets", "Men's toilets + Women's toilets"},
      {"Men's toilets,Toilettes,Women's toilets", "toilet", "Toilettes"},
      {"Herrentoiletten,Damentoiletten", "WC", "Herrentoiletten + Damentoiletten"},
      {"男子トイレ,女子トイレ,トイレタリー", "トイレ", "男子トイレ + 女子トイレ"},
      {"دورات مياه للرجال,دورات مياه للنساء", "مرحاض", "دورات مياه للرجال + دورات مياه للنساء"},
      {"Public toilets>Men's toilets>Small toilets", "toilet", "Public toilets"},
      {"A toilet,B toilet,C toilet,D toilet", "WC", "A toilet + B toilet + C toilet"},
  };
  for (const auto& each : cases)
    EXPECT_EQ(CategoryVenue(each.categories).typed(each.typed), each.found) << each.typed;
}

TEST(CategoryMatch, LeadsToEmergencyExitsOnlyIfTheyAreMeant) {
  CategoryVenue venue("Exits>Emergency exits>North");
  const auto namesFor = [&](const std::shared_ptr<Category>& category) {
    std::vector<std::string> names;
    const auto stop = nearestOf(category, guidance::InterfaceTexts()).stop;
    if (const auto* places = std::get_if<guidance::PlaceList>(&stop))
      for (const auto& place : *places) names.push_back(*place->name);
    return names;
  };
  EXPECT_EQ(venue.typed("exit"), "Exits");
  EXPECT_THAT(namesFor(venue.venue->categories->at(0)), ElementsAre("Exits"));
  EXPECT_THAT(namesFor(venue.venue->categories->at(1)), ElementsAre()) << "the category itself";
  venue.places[0]->categories.push_back(venue.venue->categories->at(1));
  EXPECT_EQ(venue.typed("exit"), "");
  EXPECT_EQ(venue.typed("Exits"), "");
  EXPECT_EQ(venue.ofKind(NamedKind::exit), "");
  EXPECT_EQ(venue.typed("Emergency exits"), "Emergency exits");
}

TEST(NearestChoices, NamesToiletsThatAreNotForEverybody) {
  const guidance::InterfaceTexts texts;
  const auto titlesFor = [&](const std::string& categories) {
    const CategoryVenue all(categories);
    all.venue->vortices.emplace();
    std::vector<std::string> titles;
    for (const auto& each : nearestChoices(*all.venue, *all.places.back(), {}, texts))
      titles.push_back(each.title);
    return titles;
  };
  EXPECT_THAT(titlesFor("Toilets>Men's toilets,Entrances,Cafés"),
              ElementsAre("Nearest toilet", "Nearest exit"));
  EXPECT_THAT(titlesFor("Men's toilets,Women's toilets,Cafés"),
              ElementsAre("Nearest: Men's toilets", "Nearest: Women's toilets"));
  EXPECT_THAT(titlesFor("Exits,Toilets>Men's toilets"), ElementsAre("Nearest exit"));
}

}  // namespace
}  // namespace orivanta::viewer
