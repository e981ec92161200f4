#include "Apps/Viewer/Search.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"
#include "Source/Venue.hpp"

namespace orivanta::viewer {

TEST(SearchForm, LeavesOutWhatPeopleLeaveOut) {
  struct Case {
    const char* text;
    const char* form;
  };
  for (const Case& each : {Case{"Crème  Brûlée!", "creme brulee"},
                           {"STRASSE", "strasse"},
                           {"Straße", "strasse"},
                           {"Łódź – Café", "łodz cafe"},
                           {"Joe's & Moe’s", "joes moes"},
                           {"ＷＣ２", "wc2"},
                           {"مَقْهى", "مقهى"},
                           {"Ёлка", "елка"},
                           {"が", "か\u3099"},
                           {"  ", ""},
                           {"", ""}})
    EXPECT_EQ(searchForm(each.text), each.form) << each.text;
  EXPECT_NE(searchForm("ก\u0E34"), searchForm("ก\u0E35")) << "vowels of Thai are letters";
}

TEST(Match, TellsHowWellANameAnswers) {
  struct Case {
    const char* name;
    const char* typed;
    Match expected;
  };
  for (const Case& each : {Case{"paper kestrel", "pap", Match::beginning},
                           {"paper kestrel", "kest", Match::word},
                           {"paper kestrel", "kes pap", Match::word},
                           {"paper kestrel", "estr", Match::inside},
                           {"paper kestrel", "kestral", Match::near},
                           {"paper kestrel", "kesrtel", Match::near},
                           {"paper kestrel", "ketre", Match::near},
                           {"paper kestrel", "papr kest", Match::near},
                           {"paper kestrel", "cat", Match::none},
                           {"toilets", "toliet", Match::near},
                           {"さまようホタン", "ホタ", Match::inside},
                           {"bar", "bat", Match::none},
                           {"anything", "", Match::beginning}})
    EXPECT_EQ(match(each.name, each.typed), each.expected) << each.name << " / " << each.typed;
}

namespace {

std::shared_ptr<Location> place(const char* id, const char* name, bool isReachable = true) {
  auto location = Location::make(*RawData::parse(
      std::string(R"({"id": ")") + id + R"(", "name": ")" + name + R"(", "type": "shop"})"));
  if (isReachable)
    location->nodes.push_back(Node::make(*RawData::parse(R"({"id": "n", "x": 0, "y": 0})")));
  return location;
}

}  // namespace

TEST(SearchIndex, PutsNamesBeforeCategoriesBeforeNearMisses) {
  const auto venue = Venue::make(*RawData::parse(R"({"id": "v", "slug": "v", "name": "V"})"));
  const auto category = Category::make(*RawData::parse(R"({"id": "c", "name": "Coffee"})"));
  venue->locations = {place("1", "The Toffee Shop"), place("2", "Zum Löwen"),
                      place("3", "Old Coffee"), place("4", "Coffee Counter"),
                      place("5", "Coffee without a door", false)};
  (*venue->locations)[1]->categories.push_back(category);
  const SearchIndex index(*venue);
  const auto find = [&](const char* typed) {
    std::string ids;
    for (const auto& found : index.find(typed)) ids += *found->id;
    return ids;
  };
  EXPECT_EQ(find("Coffee"), "4321");
  EXPECT_EQ(find("lowen"), "2");
  EXPECT_EQ(find(" "), "4312") << "all by name";
  EXPECT_EQ(find("nothing of the kind"), "");
  EXPECT_EQ(index.find("", 2).size(), 2U);
}

}  // namespace orivanta::viewer
