#include "Source/Guidance/PlaceSearch.hpp"

#include <gtest/gtest.h>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta {
namespace {

std::shared_ptr<Location> place(const std::string& id, const std::string& name,
                                const std::shared_ptr<Category>& category = nullptr,
                                bool isReachable = true) {
  auto location = Location::make(
      *RawData::parse(R"({"id": ")" + id + R"(", "name": ")" + name + R"(", "type": "shop"})"));
  if (isReachable)
    location->nodes.push_back(Node::make(*RawData::parse(R"({"id": "n", "x": 0, "y": 0})")));
  if (category) location->categories.push_back(category);
  return location;
}

std::shared_ptr<Category> categoryNamed(const std::string& name) {
  return Category::make(*RawData::parse(R"({"id": ")" + name + R"(", "name": ")" + name + R"("})"));
}

// "title:ids title:..."
std::string textOf(const std::vector<PlaceGroup>& groups) {
  std::string text;
  for (const PlaceGroup& group : groups) {
    text += (text.empty() ? "" : " ") + group.title + ':';
    for (const auto& found : group.places) text += *found->id;
  }
  return text;
}

TEST(PlaceSearch, PutsNamesBeforeCategoriesBeforeNearMisses) {
  const auto coffee = categoryNamed("Coffee");
  const PlaceSearch index({place("1", "The Toffee Shop"), place("2", "Zum Löwen", coffee),
                           place("3", "Old Coffee"), place("4", "Coffee Counter"),
                           place("5", "Coffee without a door", nullptr, false)});
  const std::pair<const char*, const char*> cases[] = {
      {"Coffee", ":4321"}, {"lowen", ":2"}, {" ", "Coffee:2 :431"}, {"nothing of the kind", ""}};
  for (const auto& [typed, expected] : cases) EXPECT_EQ(textOf(index.find(typed)), expected);
}

// A venue with German categories, and what searches find in it: "id id", the best first.
std::string foundIn(const PlaceSearch& index, std::string_view typed) {
  std::string text;
  for (const FoundGroup& group : index.search(typed))
    for (const FoundPlace& found : group.places)
      text += (text.empty() ? "" : " ") + *found.entry->place->id;
  return text;
}

std::shared_ptr<Venue> germanVenue() {
  test::TwoFloorVenue small;
  small.maps = R"([{"id": "g", "name": "Erdgeschoss", "shortName": "EG", "elevation": 0},
                   {"id": "f1", "name": "1. Obergeschoss", "shortName": "1. OG", "elevation": 10}])";
  small.categories = R"([
      {"id": "l", "name": "Aufzug"}, {"id": "w", "name": "Damentoiletten"},
      {"id": "m", "name": "Herrentoiletten"}, {"id": "x", "name": "Ausgänge"},
      {"id": "n", "name": "Notausgänge"}, {"id": "e", "name": "Eingänge"},
      {"id": "s", "name": "Geschäfte"}, {"id": "c", "name": "Geldautomaten"},
      {"id": "t", "name": "Toiletries"}])";
  small.vortices = R"([
      {"id": "lift", "name": "Aufzug 7", "type": "elevator", "categories": ["l"], "nodes": ["n3", "u1"]},
      {"id": "red", "name": "Red stairs", "type": "stairs", "nodes": ["n2", "u2"]}])";
  const auto place = [](const char* id, const char* name, const char* category, const char* node,
                        const char* more = "") {
    return std::string(R"({"id": ")") + id + R"(", "name": ")" + name +
           R"(", "type": "amenity", "categories": [")" + category + R"("], "nodes": [{"node": ")" +
           node + "\"}]" + more + "},";
  };
  const char* const generated = R"(, "nameGenerated": true)";
  small.locations =
      "[" + place("men", "0.12", "m", "n1") + place("women", "0.13", "w", "n1") +
      place("men1", "1.12", "m", "u1") + place("a1", "1", "x", "n1") + place("a2", "2", "x", "u2") +
      place("fire", "Exit 3", "n", "n1") + place("in", "Nord", "e", "n2") +
      place("g14", "Geschäft 1F-14", "s", "n1", generated) +
      place("g139", "Geschäft 1F-139", "s", "n1", generated) +
      place("liftoff", "Liftoff Café", "s", "n1") + place("soap", "Toiletries World", "t", "n1") +
      place("pan", "H&M Bäckerei", "s", "n1", R"(, "description": "Fresh pretzels, wine")") +
      place("cash", "Sparkasse", "c", "u1") + R"({"id": "no", "name": "No", "type": "x"}])";
  return small.load();
}

TEST(PlaceSearch, FindsWhatPeopleType) {
  const PlaceSearch index(*germanVenue());
  const std::pair<const char*, const char*> cases[] = {
      {"lift", "lift liftoff"},
      {"مصعد", "lift"},
      {"ｴﾚﾍﾞｰﾀｰ", "lift"},
      {"elevater", "lift"},
      {"lift 1. OG", "lift"},
      {"Aufzug 7", ""},  // no sign shows this name
      {"red", "red"},
      {"escalier", "red"},
      {"red stairs EG", "red"},
      {"wc", "men women men1"},
      {"WC für Frauen", "women"},
      {"wc women", "women"},
      {"men's toilet", "men men1"},
      {"men toilets", "men men1"},
      {"toilet", "men women men1 soap"},
      {"toil", "soap men women men1"},
      {"toilets on floor 1 og", "men1"},
      {"klo eg", "men women"},
      {"トイレEG", "men women"},
      {"sortie", "a1 a2"},
      {"exit", "a1 a2 fire"},
      {"exit 2", "a2"},
      {"exi", "a1 a2 fire"},
      {"fire exit", "fire"},
      {"Eingang", "in"},
      {"entrance", "in"},
      {"cash machine", "cash"},
      {"geschaeft", "pan liftoff soap g14 g139"},
      {"1f 14", "g14"},
      {"1f", "g14 g139"},
      {"baeckerei", "pan"},
      {"boulangerie", "pan"},
      {"hm", "pan"},
      {"pretzels", "pan"},
      {"wi", ""},
      {"no", "in fire"},
      {"1. Obergeschoss", "men1 a2 red cash lift"},
  };
  for (const auto& [typed, expected] : cases) EXPECT_EQ(foundIn(index, typed), expected) << typed;
}

TEST(PlaceSearch, TellsWhatAListShows) {
  const PlaceSearch index(*germanVenue());
  const auto textOfFirst = [&](std::string_view typed) {
    const FoundPlace found = index.search(typed).front().places.front();
    return found.entry->name + '/' + found.entry->category + '/' +
           std::string(wordOf(found.entry->kind)) + '/' + floorLabels(found.entry->floors) + '/' +
           std::string(wordOf(found.match));
  };
  EXPECT_EQ(textOfFirst("elevator"), "Aufzug/Aufzug/lift/EG, 1. OG/kind");
  EXPECT_EQ(textOfFirst("red st"), "Red stairs//stairs/EG, 1. OG/beginning");
  EXPECT_EQ(textOfFirst("pretzel"), "H&M Bäckerei/Geschäfte/shop/EG/description");
}

TEST(PlaceSearch, HandlesHugeTexts) {
  const PlaceSearch index(*germanVenue());
  std::string words;
  for (int i = 0; i < 10'000; ++i) words += std::to_string(i) + " toilet ";
  EXPECT_EQ(foundIn(index, words), "");
  EXPECT_EQ(foundIn(index, std::string(1'000'000, 'a')), "");
  std::string repeated;
  for (int i = 0; i < 10'000; ++i) repeated += "lift ";
  EXPECT_EQ(foundIn(index, repeated), "lift liftoff") << "a word counts once";
  EXPECT_EQ(foundIn(index, "\xFF"), foundIn(index, ""));
  EXPECT_EQ(PlaceSearch(SearchedPlaces()).search("lift").size(), 0U);
}

TEST(PlaceSearch, BrowsesAllPlacesByCategoryAndNumber) {
  const auto ten = categoryNamed("Exits 10");
  const auto two = categoryNamed("Exits 2");
  const auto padded = categoryNamed("Exits 02");
  const PlaceSearch index({place("1", "Gate 12", ten), place("2", "Gate 7"), place("3", "b", two),
                           place("4", "Gate 9", ten), place("5", "a", two), place("6", "Gate 70"),
                           place("7", "c", padded)});
  EXPECT_EQ(textOf(index.find("")), "Exits 02:7 Exits 2:53 Exits 10:41 :26");
}

TEST(PlaceSearch, EndsWhenItIsCanceled) {
  const foundation::CancellationSource source;
  const PlaceSearch index({place("1", "Gate")}, source.token());
  EXPECT_EQ(textOf(index.find("gate", source.token())), ":1");
  source.cancel();
  EXPECT_EQ(textOf(index.find("gate", source.token())), "");
  EXPECT_EQ(textOf(PlaceSearch({place("1", "Gate")}, source.token()).find("")), "");
}

}  // namespace
}  // namespace orivanta
