#include "Apps/Viewer/BackgroundSearch.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Platform/Foundation/MainQueue.hpp"
#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

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

TEST(SearchForm, OrdersAsPeopleCount) {
  const char* const inOrder[] = {"",  "1f 2", "1f 02 a", "1f 14", "1f 139",
                                 "2", "9",    "10",      "a",     "b"};
  for (std::size_t i = 0; i < std::size(inOrder); ++i)
    for (std::size_t j = 0; j < std::size(inOrder); ++j)
      EXPECT_EQ(comesBefore(inOrder[i], inOrder[j]), i < j) << inOrder[i] << " / " << inOrder[j];
}

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

// "title:id,id, title:..."
std::string textOf(const std::vector<PlaceGroup>& groups) {
  std::string text;
  for (const PlaceGroup& group : groups) {
    text += (text.empty() ? "" : " ") + group.title + ':';
    for (const auto& found : group.places) text += *found->id;
  }
  return text;
}

void untilFound(const BackgroundSearch& search) {
  while (search.isBusy()) {
    foundation::mainQueue::wait(10);
    foundation::mainQueue::drain();
  }
}

}  // namespace

TEST(SearchIndex, PutsNamesBeforeCategoriesBeforeNearMisses) {
  const auto coffee = categoryNamed("Coffee");
  const SearchIndex index({place("1", "The Toffee Shop"), place("2", "Zum Löwen", coffee),
                           place("3", "Old Coffee"), place("4", "Coffee Counter"),
                           place("5", "Coffee without a door", nullptr, false)});
  const std::pair<const char*, const char*> cases[] = {
      {"Coffee", ":4321"}, {"lowen", ":2"}, {" ", "Coffee:2 :431"}, {"nothing of the kind", ""}};
  for (const auto& [typed, expected] : cases) EXPECT_EQ(textOf(index.find(typed)), expected);
}

TEST(SearchIndex, BrowsesAllPlacesByCategoryAndNumber) {
  const auto exits = categoryNamed("Exits 2");
  const auto shops = categoryNamed("Exits 10");
  std::vector<std::shared_ptr<Location>> places;
  for (int i = 700; i > 0; --i)
    places.push_back(place(std::to_string(i) + ',', "Gate " + std::to_string(i),
                           i <= 2       ? nullptr
                           : i % 2 == 0 ? exits
                                        : shops));
  const auto groups = SearchIndex(places).find("");
  ASSERT_EQ(groups.size(), 3U);
  EXPECT_EQ(groups[0].title, "Exits 2");
  EXPECT_EQ(groups[1].title, "Exits 10");
  EXPECT_EQ(groups[2].title, "");
  for (const PlaceGroup& group : groups)
    for (std::size_t i = 1; i < group.places.size(); ++i)
      EXPECT_LT(std::stoi(*group.places[i - 1]->id), std::stoi(*group.places[i]->id));
  EXPECT_EQ(groups[0].places.size() + groups[1].places.size() + groups[2].places.size(), 700U);
}

TEST(SearchIndex, MakesOneGroupForEachOfTwoCategoriesOfOneNumber) {
  const auto padded = categoryNamed("Gate 01");
  const auto plain = categoryNamed("Gate 1");
  const SearchIndex index({place("1", "a", plain), place("2", "b", padded), place("3", "c", plain),
                           place("4", "d", padded)});
  EXPECT_EQ(textOf(index.find("")), "Gate 01:24 Gate 1:13");
}

TEST(SearchIndex, LooksAtTheBeginningOfAHugeName) {
  std::string name;
  for (int i = 0; i < 100'000; ++i) name += "ﷺ-";  // of eighteen letters
  EXPECT_LT(searchForm(name).size(), 400U);
  EXPECT_EQ(searchForm(std::string(299, 'a') + "é").size(), 299U) << "no half characters";
}

TEST(SearchIndex, EndsWhenItIsCancelled) {
  std::vector<std::shared_ptr<Location>> places(100'000, place("1", "Gate"));
  int asked = 0;
  const auto isCancelled = [&] { return ++asked == 3; };
  EXPECT_EQ(textOf(SearchIndex(places, isCancelled).find("")), "") << "nothing half done";
  EXPECT_EQ(asked, 3);
  const SearchIndex index(places);
  asked = 0;
  EXPECT_TRUE(index.find("gate", isCancelled).empty());
  EXPECT_EQ(asked, 3);
}

TEST(BackgroundSearch, AnswersTheLastSearchAndNobodyWhoHasLeft) {
  std::vector<std::string> answers;
  const auto tell = [&](const auto& groups) { answers.push_back(textOf(groups)); };
  BackgroundSearch search({place("1", "Bakery"), place("2", "Books")}, tell);
  search.start("boo");
  search.start("bak");
  EXPECT_TRUE(search.isBusy());
  untilFound(search);
  EXPECT_EQ(answers, std::vector<std::string>{":1"});
  {
    BackgroundSearch leaving({place("4", "Bank")}, tell);
    leaving.start("bank");
  }
  search.start("b");
  untilFound(search);
  EXPECT_EQ(answers, (std::vector<std::string>{":1", ":12"}));
}

}  // namespace orivanta::viewer
