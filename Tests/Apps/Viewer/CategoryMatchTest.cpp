#include "Apps/Viewer/Content/CategoryMatch.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Apps/Import/Places/Categories.hpp"
#include "Apps/Viewer/Content/NearestChoices.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Venue.hpp"
#include "Tests/Support/Networks.hpp"

namespace orivanta::viewer {
namespace {

using ::testing::ElementsAre;

// A venue with categories, each of which has a place that can be reached.
struct CategoryVenue {
  // The importer's categories in one language.
  CategoryVenue(const std::string& language, bool hasIdentifiers) {
    for (const importer::Category& each : importer::allCategories()) {
      const std::string id(each.id);
      add(std::string(each.name(language)), id)->id =
          hasIdentifiers ? "cat-" + id : std::to_string(places.size());
    }
  }

  // Categories such as "Parent>Child,Other".
  explicit CategoryVenue(const std::string& list) {
    for (const std::string& chain : split(list, ',')) {
      std::shared_ptr<Category> parent;
      for (const std::string& name : split(chain, '>')) {
        const auto child = add(name, name);
        if (parent) parent->children.push_back(child);
        parent = child;
      }
    }
  }

  std::shared_ptr<Category> add(const std::string& name, const std::string& label) {
    auto category = Category::make(*RawData::parse(R"({"id": "1", "name": ""})"));
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

  std::string typed(std::string_view text) const {
    std::string found;
    for (const auto& each : categoriesTyped(*venue, text))
      found += (found.empty() ? "" : "+") + labels.at(each);
    return found;
  }

  std::shared_ptr<Venue> venue = [] {
    auto made = Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
    made->categories.emplace();
    made->vortices.emplace();
    return made;
  }();
  std::vector<std::shared_ptr<Location>> places;
  std::map<std::shared_ptr<Category>, std::string> labels;
};

TEST(CategoryMatch, FindsWhatIsTyped) {
  const std::pair<const char*, const char*> cases[] = {
      {"en",
       "toil=toilets,Exit=exits,entrance=entrances,fire=safety,emergency=emergency-exits,at=,"
       "health beauty=beauty,WC=toilets"},
      {"de",
       "Ausgang=exits,ausg=exits,Eingang=entrances,Notausgang=emergency-exits,schliess=lockers,"
       "WC=toilets,exit=exits,entrance=entrances"},
      {"fr",
       "sortie=exits,entrée=entrances,Sorties de secours=emergency-exits,WC=toilets,"
       "toilettes hommes=toilets-men"},
      {"ja", "出口=exits,入口=entrances,非常口=emergency-exits,バス=buses,WC=toilets,atm=cash"},
      {"ar",
       "حمام=toilets,حمامات=showers,مخرج=exits,مدخل=entrances,مخارج الطوارئ=emergency-exits,مطا=,"
       "!=,WC=toilets"}};
  for (const auto& [language, list] : cases)
    for (const bool hasIdentifiers : {true, false})
      for (const std::string& pair : split(list, ',')) {
        const std::size_t at = pair.find('=');
        EXPECT_EQ(CategoryVenue(language, hasIdentifiers).typed(pair.substr(0, at)),
                  pair.substr(at + 1))
            << pair;
      }
}

TEST(CategoryMatch, UnderstandsIdentifiersAndOtherNames) {
  EXPECT_EQ(CategoryVenue("ja", true).typed("Street food"), "street-food");
  const struct {
    const char *categories, *typed, *found;
  } cases[] = {
      {"Toiletries", "toilet", ""},
      {"Toiletries", "toil", "Toiletries"},
      {"Entrances,Emergency exits", "exit", ""},
      {"Entrances,Entrances and exits", "exit", "Entrances and exits"},
      {"Ausgänge,Notausgang", "Eingang", ""},
      {"Ausgang,Haupteingang,Wareneingang", "Eingang", "Haupteingang+Wareneingang"},
      {"Men's toilets,Toiletries,Women's toilets", "toilets", "Men's toilets+Women's toilets"},
      {"Men's toilets,Toilettes,Women's toilets", "toilet", "Toilettes"},
      {"男子トイレ,女子トイレ,トイレタリー", "トイレ", "男子トイレ+女子トイレ"},
      {"دورات مياه للرجال,دورات مياه للنساء", "مرحاض", "دورات مياه للرجال+دورات مياه للنساء"},
      {"Public toilets>Men's toilets>Small toilets", "toilet", "Public toilets"},
      {"A toilet,B toilet,C toilet,D toilet", "WC", "A toilet+B toilet+C toilet"},
  };
  for (const auto& each : cases)
    EXPECT_EQ(CategoryVenue(each.categories).typed(each.typed), each.found) << each.typed;
}

TEST(CategoryMatch, LeadsToEmergencyExitsOnlyIfTheyAreMeant) {
  const CategoryVenue all("Exits>Emergency exits>North");
  const auto& categories = *all.venue->categories;
  const auto stop = nearestOf(categories[0], guidance::InterfaceTexts()).stop;
  EXPECT_THAT(std::get<guidance::PlaceList>(stop), ElementsAre(all.places[0]));
  EXPECT_TRUE(std::holds_alternative<std::shared_ptr<Category>>(
      nearestOf(categories[1], guidance::InterfaceTexts()).stop));
  EXPECT_EQ(all.typed("exit"), "Exits");
  all.places[0]->categories.push_back(categories[1]);
  EXPECT_EQ(all.typed("exit") + all.typed("Exits"), "");
  EXPECT_EQ(all.typed("Emergency exits"), "Emergency exits");
}

TEST(NearestChoices, NamesToiletsThatAreNotForEverybody) {
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"Toilets>Men's toilets,Entrances,Cafés", {"Nearest toilet", "Nearest exit"}},
      {"Men's toilets,Women's toilets,Cafés",
       {"Nearest: Men's toilets", "Nearest: Women's toilets"}},
      {"Exits,Toilets>Men's toilets", {"Nearest exit"}},
      {"Geldautomaten,Info points,AED,Cafés",
       {"Nearest cash machine", "Nearest information desk", "Nearest first aid"}}};
  for (const auto& [categories, expected] : cases) {
    const CategoryVenue all(categories);
    std::vector<std::string> titles;
    for (const auto& each :
         nearestChoices(*all.venue, all.places.back().get(), {}, guidance::InterfaceTexts()))
      titles.push_back(each.title);
    EXPECT_EQ(titles, expected);
  }
}

}  // namespace
}  // namespace orivanta::viewer
