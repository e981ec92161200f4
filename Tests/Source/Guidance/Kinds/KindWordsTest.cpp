#include "Source/Guidance/Kinds/KindWords.hpp"

#include <gtest/gtest.h>

#include <set>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/RawData.hpp"
#include "Source/Vortex.hpp"

namespace orivanta {
namespace {

TEST(KindWords, FindsKindsOfNamesInSevenLanguages) {
  const std::pair<const char*, PlaceKind> names[] = {
      {"Men's toilets", PlaceKind::toiletMen},
      {"Women’s Restroom", PlaceKind::toiletWomen},
      {"Women's clothing", PlaceKind::shop},
      {"DAMENTOILETTEN", PlaceKind::toiletWomen},
      {"Barrierefreie Toiletten", PlaceKind::toiletWheelchair},
      {"男女トイレ", PlaceKind::toilet},
      {"Bicycle parking", PlaceKind::bicycle},
      {"Stationnement", PlaceKind::parking},
      {"Waiting rooms", PlaceKind::waiting},
      {"Hörsäle", PlaceKind::room},
      {"出入口", PlaceKind::entrance},
      {"出口", PlaceKind::exit},
      {"改札", PlaceKind::gate},
      {"Aseos", PlaceKind::toilet},
      {"Taquillas de billetes", PlaceKind::ticket},
      {"엘리베이터", PlaceKind::lift},
      {"강의실·연구실", PlaceKind::room},
      {"صرّاف آلي", PlaceKind::cash},
      {"مطاعم", PlaceKind::food},
      {"Moving walkways", PlaceKind::escalator},
      {"Toiletries", PlaceKind::shop},
      {"Businesses", PlaceKind::other},
      {"Drinking water", PlaceKind::other},
      {"", PlaceKind::other},
      {"\xFF", PlaceKind::other},
  };
  const KindWords words;
  for (const auto& [name, kind] : names)
    EXPECT_EQ(wordOf(words.kindOf(name)), wordOf(kind)) << name;
}

TEST(KindWords, AddedWordsComeFirst) {
  KindWords words;
  EXPECT_TRUE(words.add(PlaceKind::sport, "_Café_"));
  EXPECT_TRUE(words.add(PlaceKind::office, "salle"));
  EXPECT_FALSE(words.add(PlaceKind::office, "_-_"));
  EXPECT_EQ(words.kindOf("Grand cafe"), PlaceKind::sport);
  EXPECT_EQ(words.kindOf("Cafeteria"), PlaceKind::food);
  EXPECT_EQ(words.kindOf("Vorsalle"), PlaceKind::office);
}

template <class Record>
std::shared_ptr<Record> recordOf(const std::string& json) {
  return Record::make(*RawData::parse(json));
}

TEST(KindWords, UsesConnectorTypeThenCategoriesThenType) {
  const auto stalls = recordOf<Category>(R"({"id": "toilet", "name": "Stalls"})");
  const auto shops = recordOf<Category>(R"({"id": "1", "name": "Food court"})");
  const KindWords words;
  EXPECT_EQ(words.kindOf(*stalls), PlaceKind::other) << "an identifier is no name";
  stalls->parents = {stalls, shops};
  EXPECT_EQ(words.kindOf(*stalls), PlaceKind::food);
  stalls->parents = {stalls, stalls, stalls};
  EXPECT_EQ(words.kindOf(*stalls), PlaceKind::other) << "categories may contain each other";

  struct Case {
    bool isConnector;
    const char* type;
    PlaceKind kind;
    PlaceKind kindWithoutCategories;
  };
  for (const Case& given : {Case{false, "tenant", PlaceKind::food, PlaceKind::shop},
                            {false, "elevator", PlaceKind::food, PlaceKind::lift},
                            {true, "elevator", PlaceKind::lift, PlaceKind::lift},
                            {true, "passage", PlaceKind::food, PlaceKind::other},
                            {false, "amenity", PlaceKind::food, PlaceKind::other}}) {
    const std::string json =
        std::string(R"({"id": "atm", "name": "ATM", "type": ")") + given.type + "\"}";
    const std::shared_ptr<Location> place =
        given.isConnector ? recordOf<Vortex>(json) : recordOf<Location>(json);
    EXPECT_EQ(words.kindOf(*place), given.kindWithoutCategories) << given.type;
    place->categories = {nullptr, stalls, shops};
    EXPECT_EQ(words.kindOf(*place), given.kind) << given.type;
  }
}

TEST(PlaceKind, HasDistinctNames) {
  std::set<std::string_view> names;
  for (std::size_t i = 0; i < placeKindCount; ++i) {
    const auto kind = static_cast<PlaceKind>(i);
    names.insert(wordOf(kind));
    EXPECT_EQ(placeKindNamed(wordOf(kind)), kind);
  }
  EXPECT_EQ(names.size(), placeKindCount);
  EXPECT_FALSE(placeKindNamed("Lift"));
}

}  // namespace
}  // namespace orivanta
