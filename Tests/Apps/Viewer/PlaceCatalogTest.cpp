#include "Apps/Viewer/Content/PlaceCatalog.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "Apps/Viewer/Content/KindGroups.hpp"
#include "Apps/Viewer/Content/ShownName.hpp"
#include "Apps/Viewer/Panels/ChoiceList.hpp"
#include "Apps/Viewer/RecentPlaces.hpp"
#include "Tests/Support/TwoFloorVenue.hpp"

namespace orivanta::viewer {
namespace {

// Places such as "Name/category", with "~" before generated names.
std::shared_ptr<Venue> venueOf(const std::vector<std::string>& places) {
  test::TwoFloorVenue records;
  records.categories = R"([{"id": "shop", "name": "店舗"}, {"id": "men", "name": "Herrentoiletten"},
                           {"id": "women", "name": "Damentoiletten"}, {"id": "x", "name": "Xyz"}])";
  records.locations.clear();
  for (const std::string& each : places) {
    const bool isGenerated = each.starts_with('~');
    const auto slash = each.find('/');
    records.locations += fmt::format(
        R"({}{{"id": "{}", "name": "{}", "type": "place", "categories": ["{}"],
               "nodes": [{{"node": "n1"}}], "nameGenerated": {}}})",
        records.locations.empty() ? "[" : ",", records.locations.size(),
        each.substr(isGenerated ? 1 : 0, slash - (isGenerated ? 1 : 0)), each.substr(slash + 1),
        isGenerated);
  }
  records.locations += "]";
  records.vortices = R"([{"id": "b", "name": "B", "type": "elevator", "nodes": ["n3", "u1"]},
                         {"id": "g", "name": "Elevator 1", "type": "elevator",
                          "nameGenerated": true, "nodes": ["n3", "u1"]}])";
  return records.load();
}

std::string namesOf(const Venue& venue, const std::vector<std::shared_ptr<Location>>& places) {
  std::string names;
  for (const auto& place : places)
    names += (names.empty() ? "" : ", ") + listedName(venue, *place, guidance::InterfaceTexts());
  return names;
}

TEST(PlaceCatalog, SortsAllPlacesAsPeopleCountAndPutsTheMostUsefulKindsFirst) {
  const auto venue =
      venueOf({"~1F-139/shop", "Äpfel/shop", "1F-139/shop", "~1F-14/shop", "1F-14/shop",
               "Bananen/shop", "1f-2/shop", "H/men", "D/women", "Z/x", "11/x", "9/x"});
  const PlaceCatalog catalog(*venue, KindWords());
  std::vector<std::string> found;
  for (const CatalogGroup& group : catalog.groups())
    found.push_back(fmt::format("{} {}", group.nameKey, namesOf(*venue, group.places)));
  const std::vector<std::string> expected = {
      "interface.kind.toilet D, H",
      "interface.kind.shop 1f-2, 1F-14, 1F-139, Äpfel, Bananen, 1F-14, 1F-139",
      "interface.kind.lift B, Elevator", "interface.search.others 9, 11, Z"};
  EXPECT_EQ(found, expected);
  EXPECT_EQ(catalog.size(), 14U);
}

TEST(PlaceCatalog, SortsEqualNamesByFloor) {
  test::TwoFloorVenue records;
  constexpr const char* place =
      R"({{"id": "{0}", "name": "Kiosk", "type": "shop", "nodes": [{{"node": "{0}"}}]}})";
  records.locations = fmt::format("[{},{}]", fmt::format(place, "u1"), fmt::format(place, "n1"));
  const auto venue = records.load();
  EXPECT_EQ(PlaceCatalog(*venue, KindWords()).groups().front().places.front()->id, "n1");
}

TEST(PlaceCatalog, GroupsByCategoryWhereThatHelps) {
  const std::pair<std::vector<std::string>, std::string> cases[] = {
      {{"H/men", "D/women", "E/women", "G/men"}, "Damentoiletten: D, E; Herrentoiletten: H, G; "},
      {{"H/men", "G/men"}, ": H, G; "},
      {{"H/men", "D/women", "Z/x"}, ": H, D, Z; "}};
  for (const auto& [places, expected] : cases) {
    const auto venue = venueOf(places);
    std::string found;
    for (const PlaceGroup& group : byCategory(*venue->locations))
      found += group.title + ": " + namesOf(*venue, group.places) + "; ";
    EXPECT_EQ(found, expected);
  }
}

TEST(KindGroups, HaveEveryKindAndANameInEveryLanguage) {
  for (std::size_t kind = 0; kind < placeKindCount; ++kind)
    EXPECT_EQ(kindGroupOf(static_cast<PlaceKind>(kind)).has_value(),
              static_cast<PlaceKind>(kind) != PlaceKind::other);
  for (const char* language : {"en", "de", "fr", "ja", "ar"})
    for (const KindGroup& group : kindGroups())
      EXPECT_NE(guidance::InterfaceTexts(language).text(group.nameKey), "") << group.nameKey;
}

TEST(RecentPlaces, KeepEachOfTheLatestPlacesOnce) {
  const auto venue = venueOf({"0/x", "1/x", "2/x", "3/x", "4/x", "5/x", "6/x", "7/x", "8/x"});
  RecentPlaces recent;
  for (const auto& place : *venue->locations) recent.add(place);
  recent.add(venue->locations->at(4));
  recent.add(nullptr);
  EXPECT_EQ(namesOf(*venue, recent.places()), "4, 8, 7, 6, 5, 3, 2, 1");
  recent.clear();
  EXPECT_TRUE(recent.places().empty());
}

// Six tiles and one that unfolds the section, with room for two tiles in a row.
TEST(ChoiceList, FoldsTilesAndMovesTheMarkInBothDirections) {
  for (const std::size_t foldedRows : {2U, 3U}) {
    std::string chosen;
    const auto choice = [&](std::string title) {
      return Choice{.title = title, .action = [&chosen, title] { chosen = title; }};
    };
    ChoiceList list;
    list.setFrame({{0, 0}, {240, 1000}});
    list.setSections({{ChoiceSection::Look::heading, "Title"},
                      {ChoiceSection::Look::tallTiles,
                       "",
                       {choice("a"), choice("b"), choice("c"), choice("d"), choice("e"),
                        choice("all"), choice("more")},
                       foldedRows},
                      {ChoiceSection::Look::rows, "", {choice("row")}}});
    list.layOut(240);
    EXPECT_FALSE(list.chooseMarked());
    const auto press = [&](int down, int forward) {
      if (down != 0) list.moveMark(down);
      if (forward != 0) list.moveAcross(forward);
      EXPECT_TRUE(list.chooseMarked());
      return chosen;
    };
    EXPECT_EQ(press(1, 0), "a");
    EXPECT_EQ(press(0, 1), "b");
    EXPECT_EQ(press(0, 1), "b") << "the end of the row";
    EXPECT_EQ(press(1, 0), foldedRows == 2 ? "more" : "d");
    EXPECT_EQ(press(0, -1), foldedRows == 2 ? "all" : "c");
    EXPECT_EQ(press(1, 0), foldedRows == 2 ? "row" : "e");
    EXPECT_EQ(list.size(), foldedRows == 2 ? 4U : 5U);
  }
}

}  // namespace
}  // namespace orivanta::viewer
