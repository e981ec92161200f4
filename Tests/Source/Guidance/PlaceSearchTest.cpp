#include "Source/Guidance/PlaceSearch.hpp"

#include <gtest/gtest.h>

#include "Source/Category.hpp"
#include "Source/Location.hpp"
#include "Source/Node.hpp"

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

// "title:id,id, title:..."
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

TEST(PlaceSearch, BrowsesAllPlacesByCategoryAndNumber) {
  const auto exits = categoryNamed("Exits 2");
  const auto shops = categoryNamed("Exits 10");
  std::vector<std::shared_ptr<Location>> places;
  for (int i = 700; i > 0; --i)
    places.push_back(place(std::to_string(i) + ',', "Gate " + std::to_string(i),
                           i <= 2       ? nullptr
                           : i % 2 == 0 ? exits
                                        : shops));
  const auto groups = PlaceSearch(places).find("");
  ASSERT_EQ(groups.size(), 3U);
  EXPECT_EQ(groups[0].title, "Exits 2");
  EXPECT_EQ(groups[1].title, "Exits 10");
  EXPECT_EQ(groups[2].title, "");
  for (const PlaceGroup& group : groups)
    for (std::size_t i = 1; i < group.places.size(); ++i)
      EXPECT_LT(std::stoi(*group.places[i - 1]->id), std::stoi(*group.places[i]->id));
  EXPECT_EQ(groups[0].places.size() + groups[1].places.size() + groups[2].places.size(), 700U);
}

TEST(PlaceSearch, MakesOneGroupForEachOfTwoCategoriesOfOneNumber) {
  const auto padded = categoryNamed("Gate 01");
  const auto plain = categoryNamed("Gate 1");
  const PlaceSearch index({place("1", "a", plain), place("2", "b", padded), place("3", "c", plain),
                           place("4", "d", padded)});
  EXPECT_EQ(textOf(index.find("")), "Gate 01:24 Gate 1:13");
}

TEST(PlaceSearch, EndsWhenItIsCanceled) {
  std::vector<std::shared_ptr<Location>> places(100'000, place("1", "Gate"));
  int asked = 0;
  const auto isCanceled = [&] { return ++asked == 3; };
  EXPECT_EQ(textOf(PlaceSearch(places, isCanceled).find("")), "") << "nothing half done";
  EXPECT_EQ(asked, 3);
  const PlaceSearch index(places);
  asked = 0;
  EXPECT_TRUE(index.find("gate", isCanceled).empty());
  EXPECT_EQ(asked, 3);
}

}  // namespace
}  // namespace orivanta
